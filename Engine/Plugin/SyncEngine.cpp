#include "Engine/Plugin/SyncEngine.h"

#include "Engine/Stores/EngineStore.h"
#include "Host/SyncStrings.h"

SyncEngine::SyncEngine()
    : m_library(m_profile),
      m_plugin(m_profile, m_library),
      m_triggers(m_plugin, m_library),
      m_classes(m_plugin, m_library) {}

SyncEngine::~SyncEngine() {
    EngineStore::endAll();
    removeLocalizationTables(&m_translator);
}

std::optional<Error> SyncEngine::openProfile(const QString &directory, FirstContents contents) {
    installTranslation();
    std::optional<Error> error = m_profile.open(
        directory, [this, contents] { return writeFirstContents(m_profile, contents); });
    if (!error) {
        error = load();
    }
    m_isOpen = !error;
    return error;
}

std::optional<Error> SyncEngine::load() {
    if (std::optional<Error> error = m_library.load()) {
        return error;
    }
    if (std::optional<Error> error = m_certificateTrust.load()) {
        return error;
    }
    if (std::optional<Error> error = m_plugin.load()) {
        return error;
    }
    m_triggers.start();
    return {};
}

void SyncEngine::installTranslation() {
    if (m_translator.load(QLocale(), QStringLiteral("Sync"), QStringLiteral("_"),
                          QStringLiteral(":/VelmoraSync/Translations"))) {
        setLocalizationTable(SyncTable, &m_translator);
        setLocalizationTable(PlatformTable, &m_translator);
    }
}
