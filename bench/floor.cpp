// SPDX-License-Identifier: MIT
// The reference for bench/compare-programs: the minimum of work for a search by content. Threads list folders
// from one stack. Files that share their size with another one are then read and checksummed, folder by
// folder in the order found, each thread taking the next few. It shows nothing, cannot be cancelled, and
// treats files as equal if size and checksum are.

#include <algorithm>
#include <atomic>
#include <condition_variable>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <deque>
#include <functional>
#include <memory>
#include <mutex>
#include <string>
#include <thread>
#include <tuple>
#include <vector>

#include <dirent.h>
#include <fcntl.h>
#include <libdeflate.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

constexpr std::size_t kLargestSize = 10'000'000;

// The number of files that a thread takes at a time.
constexpr std::size_t kChunk = 16;

constexpr unsigned kMostThreads = 64;

struct File {
    const char* path;
    std::uint32_t size;
    std::uint32_t crc = 0;
    bool wanted = false;
    bool read = false;
};

struct Folder {
    std::string path; // ends in a slash
    std::vector<File> files;
    std::string paths; // of the files, each followed by a NUL
};

// Calls work() in `count` threads, including this one, and waits for all of them.
void inThreads(unsigned count, const std::function<void()>& work)
{
    std::vector<std::thread> threads;
    for (unsigned n = 1; n < count; ++n) {
        threads.emplace_back(work);
    }
    work();
    for (std::thread& thread : threads) {
        thread.join();
    }
}

class Walk
{
public:
    bool add(const char* path)
    {
        m_folders.push_back({path, {}, {}});
        Folder& folder = m_folders.back();
        if (folder.path.back() != '/') {
            folder.path.push_back('/');
        }
        m_stack.push_back(&folder);
        return ::access(path, R_OK | X_OK) == 0;
    }

    // The function of the threads that list the added folders and everything below them.
    void run()
    {
        std::unique_lock lock(m_mutex);
        for (;;) {
            m_changed.wait(lock, [&] { return !m_stack.empty() || m_busy == 0; });
            if (m_stack.empty()) {
                return;
            }
            Folder& folder = *m_stack.back();
            m_stack.pop_back();
            ++m_busy;
            lock.unlock();
            const std::vector<std::string> below = list(folder);
            lock.lock();
            for (const std::string& name : below) {
                m_folders.push_back({folder.path + name + '/', {}, {}});
                m_stack.push_back(&m_folders.back());
            }
            --m_busy;
            m_changed.notify_all();
        }
    }

    std::deque<Folder>& folders() { return m_folders; }

private:
    // Returns the names of its subfolders.
    static std::vector<std::string> list(Folder& folder)
    {
        std::vector<std::string> below;
        DIR* const listing = ::opendir(folder.path.c_str());
        if (listing == nullptr) {
            return below;
        }
        std::vector<std::size_t> starts; // offsets rather than pointers, since `paths` may be reallocated
        while (const dirent* const entry = ::readdir(listing)) {
            const char* const name = entry->d_name;
            if (std::strcmp(name, ".") == 0 || std::strcmp(name, "..") == 0) {
                continue;
            }
            unsigned char type = entry->d_type;
            struct stat status;
            if (type == DT_REG || type == DT_UNKNOWN) {
                if (::fstatat(::dirfd(listing), name, &status, AT_SYMLINK_NOFOLLOW) != 0) {
                    continue;
                }
                type = S_ISREG(status.st_mode) ? DT_REG : S_ISDIR(status.st_mode) ? DT_DIR : DT_UNKNOWN;
            }
            if (type == DT_DIR) {
                below.emplace_back(name);
            } else if (type == DT_REG && status.st_size <= static_cast<off_t>(kLargestSize)) {
                folder.files.push_back({nullptr, static_cast<std::uint32_t>(status.st_size)});
                starts.push_back(folder.paths.size());
                folder.paths.append(folder.path).append(name).push_back('\0');
            }
        }
        ::closedir(listing);
        for (std::size_t n = 0; n < starts.size(); ++n) {
            folder.files[n].path = folder.paths.data() + starts[n];
        }
        return below;
    }

    std::mutex m_mutex;
    std::condition_variable m_changed;
    std::deque<Folder> m_folders;
    std::vector<Folder*> m_stack; // folders not listed yet
    unsigned m_busy = 0;          // number of threads that are listing a folder
};

// Calls what(first, last) for each run of two or more adjacent files that are alike.
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

// The files that share their size with another one, in the order in which they were found.
std::vector<File*> candidates(std::deque<Folder>& folders)
{
    std::vector<File*> sorted;
    for (Folder& folder : folders) {
        for (File& file : folder.files) {
            sorted.push_back(&file);
        }
    }
    std::vector<File*> wanted = sorted;
    std::sort(sorted.begin(), sorted.end(), [](const File* a, const File* b) { return a->size < b->size; });
    eachGroup(
        sorted, [](const File& a, const File& b) { return a.size == b.size; },
        [](auto first, auto last) { std::for_each(first, last, [](File* file) { file->wanted = true; }); });
    std::erase_if(wanted, [](const File* file) { return !file->wanted; });
    return wanted;
}

struct Free {
    void operator()(void* memory) const { std::free(memory); }
};

void read(File& file, void* buffer)
{
    const int fd = ::open(file.path, O_RDONLY | O_NOFOLLOW | O_CLOEXEC);
    if (fd < 0) {
        return;
    }
    const ssize_t got = ::read(fd, buffer, file.size);
    ::close(fd);
    if (got >= 0) {
        file.crc = libdeflate_crc32(0, buffer, static_cast<std::size_t>(got));
        file.read = true;
    }
}

// The function of the threads that read files; `next` is the first file not taken yet.
void readSome(const std::vector<File*>& wanted, std::atomic<std::size_t>& next)
{
    constexpr std::size_t kPage = std::size_t{2} << 20;
    constexpr std::size_t kBuffer = (kLargestSize / kPage + 1) * kPage;
    const std::unique_ptr<void, Free> buffer(std::aligned_alloc(kPage, kBuffer));
    if (!buffer) {
        std::abort();
    }
    ::madvise(buffer.get(), kBuffer, MADV_HUGEPAGE);
    for (;;) {
        const std::size_t first = next.fetch_add(kChunk);
        if (first >= wanted.size()) {
            return;
        }
        for (std::size_t n = first; n < std::min(first + kChunk, wanted.size()); ++n) {
            read(*wanted[n], buffer.get());
        }
    }
}

int usage()
{
    std::fprintf(stderr, "usage: floor [--threads N] FOLDER...      (1 to %u threads; 1)\n", kMostThreads);
    return 64;
}

} // namespace

int main(int argc, char** argv)
{
    unsigned threads = 1;
    int first = 1;
    if (argc > 2 && std::strcmp(argv[1], "--threads") == 0) {
        threads = static_cast<unsigned>(std::strtoul(argv[2], nullptr, 10));
        first = 3;
    }
    if (first >= argc || threads < 1 || threads > kMostThreads) {
        return usage();
    }
    Walk walk;
    for (int i = first; i < argc; ++i) {
        if (!walk.add(argv[i])) {
            std::perror(argv[i]);
            return 2;
        }
    }
    inThreads(threads, [&] { walk.run(); });

    std::vector<File*> files = candidates(walk.folders());
    std::atomic<std::size_t> next = 0;
    inThreads(threads, [&] { readSome(files, next); });

    std::erase_if(files, [](const File* file) { return !file->read; });
    const std::size_t reads = files.size();
    std::sort(files.begin(), files.end(), [](const File* a, const File* b) {
        return std::tie(a->size, a->crc) < std::tie(b->size, b->crc);
    });
    std::size_t inGroups = 0;
    eachGroup(
        files, [](const File& a, const File& b) { return a.size == b.size && a.crc == b.crc; },
        [&](auto from, auto to) { inGroups += static_cast<std::size_t>(to - from); });

    std::size_t found = 0;
    for (const Folder& folder : walk.folders()) {
        found += folder.files.size();
    }
    std::printf("files=%zu reads=%zu groups_files=%zu\n", found, reads, inGroups);
    return 0;
}
