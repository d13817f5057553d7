#include "file_saver.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <utility>

#include "exit_status.h"
#include "file_bytes.h"
#include "output.h"

namespace tabvex::tool {

namespace {

namespace fs = std::filesystem;

constexpr mode_t kNewFileMode = 0666;
constexpr mode_t kModeBits = 07777;

[[noreturn]] void ThrowNotSaved(const std::string& fileName, int error) {
    throw CToolError(fileName + ": cannot be saved: " + std::strerror(error)); // NOLINT(concurrency-mt-unsafe)
}

[[noreturn]] void ThrowNotTheSame(const std::string& fileName) {
    throw CToolError(fileName + ": cannot be saved: what was written does not read back the same");
}

void Require(bool done, const std::string& fileName) {
    if (!done) {
        ThrowNotSaved(fileName, errno);
    }
}

class CDescriptor {
public:
    explicit CDescriptor(int number) : m_nNumber(number) {}
    ~CDescriptor() { static_cast<void>(Close()); }
    CDescriptor(const CDescriptor&) = delete;
    CDescriptor& operator=(const CDescriptor&) = delete;

    bool IsOpen() const { return m_nNumber >= 0; }
    int Get() const { return m_nNumber; }
    bool Close() { return m_nNumber < 0 || close(std::exchange(m_nNumber, -1)) == 0; }

private:
    int m_nNumber;
};

bool WriteAll(int file, std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t count = write(file, bytes.data(), bytes.size());
        if (count < 0 && errno != EINTR) {
            return false;
        }
        bytes.remove_prefix(static_cast<std::size_t>(std::max<ssize_t>(count, 0)));
    }
    return true;
}

// A file that goes away again, unless it is moved to its place.
class CTemporaryFile {
public:
    explicit CTemporaryFile(const fs::path& pattern)
        : m_strName(pattern.string()), m_File(mkostemp(m_strName.data(), O_CLOEXEC)),
          m_nError(m_File.IsOpen() ? 0 : errno) {}
    ~CTemporaryFile() {
        if (m_nError == 0 && !m_bKept) {
            static_cast<void>(unlink(m_strName.c_str()));
        }
    }
    CTemporaryFile(const CTemporaryFile&) = delete;
    CTemporaryFile& operator=(const CTemporaryFile&) = delete;

    int GetError() const { return m_nError; }
    const std::string& GetName() const { return m_strName; }
    int GetFile() const { return m_File.Get(); }
    void Keep(bool kept = true) { m_bKept = kept; }
    bool Store(const std::string& bytes) {
        return WriteAll(m_File.Get(), bytes) && fsync(m_File.Get()) == 0 && m_File.Close();
    }

private:
    std::string m_strName;
    CDescriptor m_File;
    int m_nError;
    bool m_bKept = false;
};

// A link may lead to a file that is not there yet.
fs::path FollowLinks(const std::string& fileName) {
    constexpr int kMostLinks = 40;
    fs::path path = fileName;
    std::error_code error;
    for (int i = 0; i < kMostLinks && fs::is_symlink(path, error); ++i) {
        const fs::path target = fs::read_symlink(path, error);
        path = target.is_absolute() ? target : path.parent_path() / target;
    }
    return path;
}

mode_t ModeOfNewFiles() {
    const mode_t mask = umask(0);
    umask(mask);
    return kNewFileMode & ~mask;
}

bool AllowsNoNewFile(int error) {
    return error == EACCES || error == EPERM || error == EROFS;
}

void CheckStored(const std::string& stored, const std::string& bytes, const std::string& fileName,
                 const CSaveCheck& check) {
    if (ReadFileBytes(stored) != bytes) {
        ThrowNotTheSame(fileName);
    }
    check(stored);
}

// The owner is kept where the user may give files away; the mode comes after it, which it may change.
void KeepModeAndOwner(int file, const struct stat* old) {
    if (old != nullptr && (old->st_uid != geteuid() || old->st_gid != getegid())) {
        static_cast<void>(fchown(file, old->st_uid, old->st_gid) == 0);
    }
    static_cast<void>(fchmod(file, old != nullptr ? old->st_mode & kModeBits : ModeOfNewFiles()) == 0);
}

void MoveIntoPlace(CTemporaryFile& file, const fs::path& path, const std::string& fileName) {
    Require(std::rename(file.GetName().c_str(), path.c_str()) == 0, fileName);
    file.Keep();
    const CDescriptor folder(open(path.has_parent_path() ? path.parent_path().c_str() : ".", O_RDONLY | O_CLOEXEC));
    if (folder.IsOpen()) {
        static_cast<void>(fsync(folder.Get()) == 0);
    }
}

// Room is taken before the first byte is overwritten.
bool Overwrite(int file, const std::string& bytes, off_t oldSize) {
    const auto size = static_cast<off_t>(bytes.size());
    if (size > oldSize) {
        const int error = posix_fallocate(file, 0, size);
        if (error != 0) {
            errno = error;
            return false;
        }
    }
    return lseek(file, 0, SEEK_SET) == 0 && WriteAll(file, bytes) && ftruncate(file, size) == 0 && fsync(file) == 0;
}

bool Holds(const std::string& fileName, const std::string& bytes) {
    try {
        return ReadFileBytes(fileName) == bytes;
    } catch (const CToolError&) {
        return false;
    }
}

// The copy may be the only one left until the file is known to hold the new bytes, or the old ones again.
void OverwriteOrRestore(int file, const std::string& fileName, const std::string& bytes, const std::string& old,
                        CTemporaryFile& copy) {
    copy.Keep();
    const int error = Overwrite(file, bytes, static_cast<off_t>(old.size())) ? 0 : errno;
    if (error == 0 && Holds(fileName, bytes)) {
        copy.Keep(false);
        return;
    }
    if (!Overwrite(file, old, static_cast<off_t>(old.size())) || !Holds(fileName, old)) {
        throw CToolError(fileName + ": cannot be saved; what it held is in " + copy.GetName());
    }
    copy.Keep(false);
    if (error == 0) {
        ThrowNotTheSame(fileName);
    }
    ThrowNotSaved(fileName, error);
}

void OverwriteInPlace(const fs::path& path, const std::string& fileName, const std::string& bytes,
                      const CSaveCheck& check) {
    const fs::path pattern = fs::temp_directory_path() / ("tabvex-" + path.filename().string() + "-XXXXXX");
    const std::string old = ReadFileBytes(path.string());
    CTemporaryFile copy(pattern);
    CTemporaryFile next(pattern);
    for (const int error : {copy.GetError(), next.GetError()}) {
        if (error != 0) {
            ThrowNotSaved(fileName, error);
        }
    }
    Require(next.Store(bytes) && copy.Store(old), fileName);
    CheckStored(next.GetName(), bytes, fileName, check);
    const CDescriptor file(open(path.c_str(), O_WRONLY | O_CLOEXEC));
    Require(file.IsOpen(), fileName);
    PrintMessage(fileName +
                 ": its folder allows no new file, so it is overwritten; until that is done there is a copy, " +
                 copy.GetName());
    OverwriteOrRestore(file.Get(), fileName, bytes, old, copy);
}

void WriteToDevice(const fs::path& path, const std::string& fileName, const std::string& bytes) {
    CDescriptor device(open(path.c_str(), O_WRONLY | O_CLOEXEC));
    Require(device.IsOpen() && WriteAll(device.Get(), bytes) && device.Close(), fileName);
}

} // namespace

void SaveFile(const std::string& fileName, const std::string& bytes, const CSaveCheck& check) {
    struct stat old = {};
    const bool exists = stat(fileName.c_str(), &old) == 0;
    if (exists && !S_ISREG(old.st_mode)) {
        WriteToDevice(fileName, fileName, bytes); // a link to a pipe leads to no path
        return;
    }
    const fs::path path = FollowLinks(fileName);
    Require(!exists || access(path.c_str(), W_OK) == 0, fileName);
    CTemporaryFile file(path.parent_path() / ".tabvex-XXXXXX");
    if (exists && AllowsNoNewFile(file.GetError())) {
        OverwriteInPlace(path, fileName, bytes, check);
        return;
    }
    if (file.GetError() != 0) {
        ThrowNotSaved(fileName, file.GetError());
    }
    KeepModeAndOwner(file.GetFile(), exists ? &old : nullptr);
    Require(file.Store(bytes), fileName);
    CheckStored(file.GetName(), bytes, fileName, check);
    MoveIntoPlace(file, path, fileName);
}

} // namespace tabvex::tool
