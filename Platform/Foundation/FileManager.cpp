#include "Platform/Foundation/FileManager.h"

#include <filesystem>
#include <system_error>

#include "Platform/Foundation/Localization.h"

Expected<void> FileManager::createDirectory(const QString &path) {
    std::error_code code;
    const bool isNew = std::filesystem::create_directory(path.toStdString(), code);
    if (!isNew && !code) {
        code = std::make_error_code(std::errc::file_exists);
    }
    if (!code) {
        return {};
    }
    return failure(
        {.domain = ErrorDomain,
         .code = code.value(),
         .localizedDescription =
             localizedString(PlatformTable, "The folder “%1” could not be created.").arg(path),
         .localizedFailureReason = QString::fromLocal8Bit(code.message())});
}
