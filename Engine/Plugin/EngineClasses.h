#pragma once

#include <memory>

class EngineNoteLibrary;
class EngineSyncPlugin;

/// The class objects of the engine, registered under the host's names while this exists.
class EngineClasses {
public:
    /// Both must outlive this.
    EngineClasses(EngineSyncPlugin &plugin, const EngineNoteLibrary &library);
    ~EngineClasses();
    EngineClasses(const EngineClasses &) = delete;
    EngineClasses &operator=(const EngineClasses &) = delete;

private:
    struct Objects;
    const std::unique_ptr<Objects> m_objects;
};
