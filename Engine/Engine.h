#pragma once

#include <memory>
#include <optional>

#include "Host/NoteLibrary.h"
#include "Host/QVSyncPlugin.h"

class EngineLocationsController;
class EngineNoteLibrary;
class ProfileDatabase;

/// The embedded sync engine over one profile. While it lives, its class objects are registered
/// under their names. Main thread; one at a time in a process.
class Engine : public QVSyncPlugin {
    Q_OBJECT
public:
    enum class FreshProfile {
        WithExamples,  ///< as a person finds it at the first start
        InboxOnly,
    };

    /// Opens the profile in `folder`. nullptr where that fails, and an error that says why.
    static std::unique_ptr<Engine> open(const QString &folder, FreshProfile fresh,
                                        std::optional<Error> *error);
    ~Engine() override;

    EngineNoteLibrary *library() const { return m_library.get(); }

    QVSyncLocationsController *locationsController() const override;
    QVSyncDispatcher *dispatcher() const override;
    QVDirectConnectionServer *server() const override { return nullptr; }
    std::shared_ptr<QVSyncStore> localStore() const override { return m_localStore; }
    bool usesSandboxedAccess() const override;
    void bookmarkURL(const Url &URL) override;
    void removeBookmarkForURL(const Url &URL) override;
    QStringList bookmarkDictionaryKeys() const override;
    bool isVolumeMountedAtPath(const QString &path) const override;

private:
    class Classes;

    explicit Engine(std::unique_ptr<ProfileDatabase> profile);
    std::optional<Error> load(FreshProfile fresh);

    const std::unique_ptr<ProfileDatabase> m_profile;
    const std::unique_ptr<EngineNoteLibrary> m_library;
    const std::unique_ptr<EngineLocationsController> m_locationsController;
    const std::unique_ptr<QVSyncDispatcher> m_dispatcher;
    std::shared_ptr<QVSyncStore> m_localStore;
    std::unique_ptr<Classes> m_classes;
};
