#include "Engine/VelmoraSyncPlugIn.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QLocale>

#include "Engine/Engine.h"
#include "Engine/EngineNoteLibrary.h"

VelmoraSyncPlugIn::VelmoraSyncPlugIn() = default;

VelmoraSyncPlugIn::~VelmoraSyncPlugIn() = default;

std::optional<Error> VelmoraSyncPlugIn::openProfile(const QString &directory) {
    if (m_translator.load(QLocale(), QStringLiteral("Sync"), QStringLiteral("_"),
                          QStringLiteral(":/VelmoraSync"))) {
        QCoreApplication::installTranslator(&m_translator);
    }
    std::optional<Error> error;
    m_engine = Engine::open(directory, Engine::FreshProfile::WithExamples, &error);
    return error;
}

void VelmoraSyncPlugIn::closeProfile() { m_engine.reset(); }

NoteLibrary *VelmoraSyncPlugIn::library() const {
    return m_engine ? m_engine->library() : nullptr;
}
