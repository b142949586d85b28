// The yardstick of bench/compare: the least that a search by content has to do, one step after the other in
// one thread. It walks, sorts by size, reads every file whose size another one has and takes its checksum.
// It shows nothing, cannot be stopped, and holds files to be alike whose sizes and checksums are.

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <string>
#include <tuple>
#include <vector>

#include <dirent.h>
#include <fcntl.h>
#include <libdeflate.h>
#include <sys/mman.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

constexpr std::size_t kLargestSize = 10'000'000;

struct File {
    std::size_t path; // where its path begins in Walk::paths
    std::uint32_t size;
    std::uint32_t crc;
    bool read;
};

struct Walk {
    std::vector<File> files;
    std::string paths; // each with a NUL at its end

    // Takes over the descriptor; `path` ends with a slash and is unchanged afterwards.
    void folder(int fd, std::string& path)
    {
        DIR* const listing = ::fdopendir(fd);
        if (listing == nullptr) {
            ::close(fd);
            return;
        }
        const std::size_t length = path.size();
        while (const dirent* const entry = ::readdir(listing)) {
            const char* const name = entry->d_name;
            if (std::strcmp(name, ".") == 0 || std::strcmp(name, "..") == 0) {
                continue;
            }
            unsigned char type = entry->d_type;
            struct stat status;
            if (type == DT_REG || type == DT_UNKNOWN) {
                if (::fstatat(fd, name, &status, AT_SYMLINK_NOFOLLOW) != 0) {
                    continue;
                }
                type = S_ISREG(status.st_mode) ? DT_REG : S_ISDIR(status.st_mode) ? DT_DIR : DT_UNKNOWN;
            }
            if (type == DT_DIR) {
                const int below = ::openat(fd, name, O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC);
                if (below < 0) {
                    continue;
                }
                path.append(name).push_back('/');
                folder(below, path);
                path.resize(length);
            } else if (type == DT_REG && status.st_size <= static_cast<off_t>(kLargestSize)) {
                files.push_back({paths.size(), static_cast<std::uint32_t>(status.st_size), 0, false});
                paths.append(path).append(name).push_back('\0');
            }
        }
        ::closedir(listing);
    }
};

// Calls what(first, last) for each run of two or more neighbours that are alike.
template <typename Alike, typename What>
void eachGroup(std::vector<File*>& sorted, Alike alike, What what)
{
    for (auto first = sorted.begin(); first != sorted.end();) {
        auto last =
            std::find_if_not(first, sorted.end(), [&](const File* file) { return alike(*file, **first); });
        if (last - first > 1) {
            what(first, last);
        }
        first = last;
    }
}

struct Free {
    void operator()(void* memory) const { std::free(memory); }
};

} // namespace

int main(int argc, char** argv)
{
    if (argc < 2) {
        std::fputs("usage: floor FOLDER...\n", stderr);
        return 64;
    }
    // A folder stays open while those below it are walked.
    rlimit limit{};
    if (::getrlimit(RLIMIT_NOFILE, &limit) == 0) {
        limit.rlim_cur = limit.rlim_max;
        ::setrlimit(RLIMIT_NOFILE, &limit);
    }

    Walk walk;
    for (int i = 1; i < argc; ++i) {
        std::string path(argv[i]);
        const int fd = ::open(argv[i], O_RDONLY | O_DIRECTORY | O_CLOEXEC);
        if (fd < 0) {
            std::perror(argv[i]);
            return 2;
        }
        if (path.back() != '/') {
            path.push_back('/');
        }
        walk.folder(fd, path);
    }

    std::vector<File*> sorted;
    sorted.reserve(walk.files.size());
    for (File& file : walk.files) {
        sorted.push_back(&file);
    }
    std::sort(sorted.begin(), sorted.end(), [](const File* a, const File* b) {
        return std::tie(a->size, a->path) < std::tie(b->size, b->path);
    });
    std::vector<File*> wanted;
    eachGroup(
        sorted, [](const File& a, const File& b) { return a.size == b.size; },
        [&](auto first, auto last) { wanted.insert(wanted.end(), first, last); });

    constexpr std::size_t kPage = std::size_t{2} << 20;
    constexpr std::size_t kBuffer = (kLargestSize / kPage + 1) * kPage;
    const std::unique_ptr<void, Free> buffer(std::aligned_alloc(kPage, kBuffer));
    if (!buffer) {
        return 1;
    }
    ::madvise(buffer.get(), kBuffer, MADV_HUGEPAGE);

    std::size_t reads = 0;
    for (File* const file : wanted) {
        const int fd = ::open(walk.paths.data() + file->path, O_RDONLY | O_NOFOLLOW | O_CLOEXEC);
        if (fd < 0) {
            continue;
        }
        const ssize_t got = ::read(fd, buffer.get(), file->size);
        ::close(fd);
        if (got < 0) {
            continue;
        }
        file->crc = libdeflate_crc32(0, buffer.get(), static_cast<std::size_t>(got));
        file->read = true;
        ++reads;
    }

    std::erase_if(wanted, [](const File* file) { return !file->read; });
    std::sort(wanted.begin(), wanted.end(), [](const File* a, const File* b) {
        return std::tie(a->size, a->crc) < std::tie(b->size, b->crc);
    });
    std::size_t inGroups = 0;
    eachGroup(
        wanted, [](const File& a, const File& b) { return a.size == b.size && a.crc == b.crc; },
        [&](auto first, auto last) { inGroups += static_cast<std::size_t>(last - first); });

    std::printf("files=%zu reads=%zu groups_files=%zu\n", walk.files.size(), reads, inGroups);
    return 0;
}
