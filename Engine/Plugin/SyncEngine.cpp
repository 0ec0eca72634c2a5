#include "Engine/Plugin/SyncEngine.h"

#include "Engine/Notes/NoteConversion.h"
#include "Engine/Stores/EngineStore.h"
#include "Host/SyncStrings.h"

SyncEngine::SyncEngine()
    : m_library(m_profile),
      m_plugin(m_profile, m_library),
      m_triggers(*m_plugin.locationsController(), *m_plugin.dispatcher(), m_library),
      m_classes(m_plugin, m_library) {}

SyncEngine::~SyncEngine() {
    EngineStore::endAll();
    removeLocalizationTables(&m_translator);
}

std::optional<Error> SyncEngine::openProfile(const QString &directory, FirstContents contents) {
    installTranslation();
    const Expected<void> opened =
        m_profile
            .open(
                directory, [this, contents] { return writeFirstContents(m_profile, contents); },
                [this] { return convertOldNotes(m_profile); })
            .and_then([this] { return load(); });
    m_isOpen = opened.has_value();
    return m_isOpen ? std::nullopt : std::optional(opened.error());
}

Expected<void> SyncEngine::load() {
    return m_library.load()
        .and_then([this] { return m_certificateTrust.load(); })
        .and_then([this] { return m_plugin.load(); })
        .map([this] { m_triggers.start(); });
}

void SyncEngine::installTranslation() {
    if (m_translator.load(QLocale(), QStringLiteral("Sync"), QStringLiteral("_"),
                          QStringLiteral(":/VelmoraSync/Translations"))) {
        setLocalizationTable(SyncTable, &m_translator);
        setLocalizationTable(PlatformTable, &m_translator);
    }
}
