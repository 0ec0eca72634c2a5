#pragma once

#include <QtCore/QObject>
#include <QtCore/QTranslator>
#include <memory>

#include "Host/SyncPlugIn.h"

class Engine;

/// The root object of the sync plug-in.
class VelmoraSyncPlugIn : public QObject, public SyncPlugIn {
    Q_OBJECT
    Q_PLUGIN_METADATA(IID SyncPlugIn_iid)
    Q_INTERFACES(SyncPlugIn)
public:
    VelmoraSyncPlugIn();
    ~VelmoraSyncPlugIn() override;

    std::optional<Error> openProfile(const QString &directory) override;
    void closeProfile() override;
    NoteLibrary *library() const override;

private:
    QTranslator m_translator;
    std::unique_ptr<Engine> m_engine;
};
