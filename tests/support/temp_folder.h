// A folder of its own for a test's files.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

/// Makes a new, empty folder and removes it, with all that is in it, at the end of the scope.
class CTempFolder {
public:
    CTempFolder();
    ~CTempFolder();
    CTempFolder(const CTempFolder&) = delete;
    CTempFolder& operator=(const CTempFolder&) = delete;

    /// The folder itself.
    std::string Path() const { return m_Path.string(); }
    /// Path of a file in it, whether there is one or not.
    std::string PathOf(std::string_view name) const;
    /// Writes a file, byte for byte; its path.
    std::string Write(std::string_view name, std::string_view bytes) const;

private:
    std::filesystem::path m_Path;
};

/// Replaces a file's content, byte for byte.
void WriteFile(const std::string& path, std::string_view bytes);
/// A file's content, byte for byte; throws when there is no such file.
std::string ReadFile(const std::string& path);
