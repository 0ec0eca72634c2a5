#include "Platform/Interface/PreferencePane.h"

#include <QtWidgets/QWidget>

#include "Platform/Interface/Nib.h"

PreferencePane::PreferencePane(QJsonObject info) : m_info(std::move(info)) {}

PreferencePane::~PreferencePane() {
    discardMainView();
}

void PreferencePane::loadMainView() {
    m_mainView = Nib::load(mainNibName(), this);
    awakeFromNib();
}

void PreferencePane::discardMainView() {
    delete m_mainView;
}
