// SPDX-License-Identifier: MIT
// Creates the folder trees that bench/compare-programs and bench/growth measure. A tree depends only on its
// name and N, so results from different machines are for the same files.

#include <cerrno>
#include <charconv>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <exception>
#include <filesystem>
#include <random>
#include <stdexcept>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

#include <fcntl.h>
#include <unistd.h>

namespace {

// Has to be increased with any change of a tree, so that stored trees are created again.
constexpr int kVersion = 1;

// The largest size that all programs in the comparison accept.
constexpr std::uint64_t kLargestSize = 10'000'000;

using Random = std::mt19937_64;

// The distributions of the standard library can differ between implementations; this one cannot. The slight
// bias towards small numbers is harmless here.
std::uint64_t between(Random& random, std::uint64_t low, std::uint64_t high)
{
    return low + random() % (high - low + 1);
}

std::string numbered(std::string_view word, std::uint64_t number, int digits)
{
    char text[64];
    const int length = std::snprintf(text, sizeof text, "%.*s%0*llu", static_cast<int>(word.size()),
                                     word.data(), digits, static_cast<unsigned long long>(number));
    return {text, static_cast<std::size_t>(length)};
}

class Tree
{
public:
    explicit Tree(std::string root) : m_root(std::move(root))
    {
        if (std::filesystem::exists(std::filesystem::symlink_status(m_root))) {
            throw std::runtime_error(m_root + ": exists already");
        }
        std::filesystem::create_directories(m_root);
    }

    // Creates a folder and its parents, and returns its path with a trailing slash.
    [[nodiscard]] std::string folder(const std::string& relative) const
    {
        std::string path = m_root + '/' + relative;
        std::filesystem::create_directories(path);
        return path += '/';
    }

    void file(const std::string& path, const void* bytes, std::size_t size)
    {
        const int fd = create(path);
        const bool written = ::write(fd, bytes, size) == static_cast<ssize_t>(size);
        finish(fd, path, written);
    }

    // Creates a file of that size that occupies no blocks on disk.
    void hollow(const std::string& path, std::uint64_t size)
    {
        const int fd = create(path);
        finish(fd, path, ::ftruncate(fd, static_cast<off_t>(size)) == 0);
    }

    // Creates a file with pseudo-random bytes: the same seed and size give a copy.
    void random(const std::string& path, std::uint64_t seed, std::uint64_t size)
    {
        Random source(seed);
        m_words.resize(size / sizeof(std::uint64_t) + 1);
        for (std::uint64_t& word : m_words) {
            word = source();
        }
        file(path, m_words.data(), size);
    }

private:
    static int create(const std::string& path)
    {
        const int fd = ::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0644);
        if (fd < 0) {
            throw std::system_error(errno, std::generic_category(), path);
        }
        return fd;
    }

    static void finish(int fd, const std::string& path, bool good)
    {
        const int error = errno;
        if (::close(fd) != 0 || !good) {
            throw std::system_error(good ? errno : error, std::generic_category(), path);
        }
    }

    std::string m_root;
    std::vector<std::uint64_t> m_words;
};

struct Original {
    std::uint64_t seed;
    std::uint64_t size;
};

// Gives each file new contents or, in `percent` of cases, those of an earlier one.
class Contents
{
public:
    Contents(std::uint64_t seed, std::uint64_t percent, std::uint64_t smallest, std::uint64_t largest)
        : m_random(seed), m_percent(percent), m_smallest(smallest), m_largest(largest)
    {
    }

    Original next()
    {
        if (!m_originals.empty() && between(m_random, 0, 99) < m_percent) {
            return m_originals[between(m_random, 0, m_originals.size() - 1)];
        }
        m_originals.push_back({m_random(), between(m_random, m_smallest, m_largest)});
        return m_originals.back();
    }

private:
    Random m_random;
    std::uint64_t m_percent;
    std::uint64_t m_smallest;
    std::uint64_t m_largest;
    std::vector<Original> m_originals;
};

// Calls make(folder, i) for i below n, with `each` files per folder.
template <typename Make>
void spread(const Tree& tree, std::uint64_t n, std::uint64_t each, Make make)
{
    std::string folder;
    for (std::uint64_t i = 0; i < n; ++i) {
        if (i % each == 0) {
            folder = tree.folder(numbered("section-", i / each / 40, 3) + numbered("/part-", i / each, 4));
        }
        make(folder, i);
    }
}

// Calls make(path, i) for i below n with paths that all end in the same name; the folders are grouped by a
// thousand per parent.
template <typename Make>
void spreadOneName(const Tree& tree, std::uint64_t n, Make make)
{
    for (std::uint64_t i = 0; i < n; ++i) {
        make(tree.folder(numbered("section-", i / 1000, 3) + numbered("/place-", i, 6)) + "name.dat", i);
    }
}

void makeSmall(Tree& tree, std::uint64_t n)
{
    Contents contents(11, 30, 100, 16'384);
    spread(tree, n, 50, [&](const std::string& folder, std::uint64_t i) {
        const Original what = contents.next();
        // Some files are hidden and some empty: a program that skips either has a different count.
        tree.random(folder + numbered(i % 100 == 7 ? ".item-" : "item-", i, 6) + ".dat", what.seed,
                    i % 400 == 9 ? 0 : what.size);
    });
}

// Like the small files, but each fits in a single block: what matters is their number.
void makeMillion(Tree& tree, std::uint64_t n)
{
    Contents contents(17, 30, 2'048, 4'096);
    spread(tree, n, 50, [&](const std::string& folder, std::uint64_t i) {
        const Original what = contents.next();
        tree.random(folder + numbered("item-", i, 7) + ".dat", what.seed, what.size);
    });
}

void makeLarge(Tree& tree, std::uint64_t n)
{
    Contents contents(12, 30, 1'000'000, kLargestSize);
    spread(tree, n, 15, [&](const std::string& folder, std::uint64_t i) {
        const Original what = contents.next();
        tree.random(folder + numbered("film-", i, 4) + ".bin", what.seed, what.size);
    });
}

void makeOneSize(Tree& tree, std::uint64_t n)
{
    Random random(13);
    spread(tree, n, 1000, [&](const std::string& folder, std::uint64_t i) {
        tree.random(folder + numbered("page-", i, 6) + ".dat", random(), 4096);
    });
}

void makeOneFolder(Tree& tree, std::uint64_t n)
{
    Contents contents(18, 30, 10, 1'000);
    const std::string folder = tree.folder("all");
    for (std::uint64_t i = 0; i < n; ++i) {
        const Original what = contents.next();
        tree.random(folder + numbered("item-", i, 6) + ".dat", what.seed, what.size);
    }
}

void makeOneName(Tree& tree, std::uint64_t n)
{
    Contents contents(14, 10, 100, 4096);
    spreadOneName(tree, n, [&](const std::string& path, std::uint64_t) {
        const Original what = contents.next();
        tree.random(path, what.seed, what.size);
    });
}

void makeEmpty(Tree& tree, std::uint64_t n)
{
    spread(tree, n, 1000, [&](const std::string& folder, std::uint64_t i) {
        tree.file(folder + numbered("mark-", i, 6) + ".tmp", nullptr, 0);
    });
}

void makeDeep(Tree& tree, std::uint64_t n)
{
    Contents contents(16, 30, 100, 16'384);
    std::string below;
    for (std::uint64_t level = 0; level < n; ++level) {
        below += numbered(level == 0 ? "at" : "/at", level, 3);
        const std::string folder = tree.folder(below);
        for (std::uint64_t i = 0; i < 10; ++i) {
            const Original what = contents.next();
            tree.random(folder + numbered("leaf-", i, 2) + ".dat", what.seed, what.size);
        }
    }
}

// Only the names are equal, so no file needs to be read.
void makeHostileName(Tree& tree, std::uint64_t n)
{
    spreadOneName(tree, n, [&](const std::string& path, std::uint64_t i) { tree.hollow(path, i + 1); });
}

void makeHostileSize(Tree& tree, std::uint64_t n)
{
    spread(tree, n, 1000, [&](const std::string& folder, std::uint64_t i) {
        tree.file(folder + numbered("page-", i, 6) + ".dat", &i, sizeof i);
    });
}

void makeHostileNameSizes(Tree& tree, std::uint64_t n)
{
    spreadOneName(tree, n, [&](const std::string& path, std::uint64_t i) {
        const std::uint64_t bytes[2] = {i, 0};
        tree.file(path, bytes, sizeof i + i % 2);
    });
}

void makeHostileAlike(Tree& tree, std::uint64_t n)
{
    spread(tree, n, 1000, [&](const std::string& folder, std::uint64_t i) {
        tree.file(folder + numbered("copy-", i, 6) + ".dat", "the same", 8);
    });
}

struct Corpus {
    std::string_view name;
    std::uint64_t defaultCount;
    void (*make)(Tree&, std::uint64_t);
    std::string_view what;
};

constexpr Corpus kCorpora[] = {
    {"small", 50'000, makeSmall, "files of 0.1-16 KB, 30 % copies"},
    {"million", 1'000'000, makeMillion, "files of 2-4 KB, 30 % copies"},
    {"large", 150, makeLarge, "files of 1-10 MB, 30 % copies"},
    {"one-size", 20'000, makeOneSize, "4096 bytes each, all different"},
    {"one-name", 20'000, makeOneName, "a folder each, one file name"},
    {"one-folder", 200'000, makeOneFolder, "files of up to 1 KB in one folder, 30 % copies"},
    {"empty", 50'000, makeEmpty, "nothing in any of them"},
    {"deep", 200, makeDeep, "a chain of N folders, 10 files in each, 30 % copies"},
    {"hostile-name", 50'000, makeHostileName, "one file name, every size different"},
    {"hostile-size", 50'000, makeHostileSize, "one size, all different"},
    {"hostile-name-sizes", 50'000, makeHostileNameSizes, "one file name, two sizes in turn, all different"},
    {"hostile-alike", 50'000, makeHostileAlike, "the same contents everywhere"},
};

int usage()
{
    std::fputs("usage: makecorpus version | makecorpus CORPUS FOLDER [N]\n", stderr);
    for (const Corpus& corpus : kCorpora) {
        std::fprintf(stderr, "  %-20s %7llu  %s\n", std::string(corpus.name).c_str(),
                     static_cast<unsigned long long>(corpus.defaultCount), std::string(corpus.what).c_str());
    }
    return 64;
}

} // namespace

int main(int argc, char** argv)
{
    if (argc == 2 && std::strcmp(argv[1], "version") == 0) {
        std::printf("%d\n", kVersion);
        return 0;
    }
    if (argc != 3 && argc != 4) {
        return usage();
    }
    for (const Corpus& corpus : kCorpora) {
        if (corpus.name != argv[1]) {
            continue;
        }
        std::uint64_t n = corpus.defaultCount;
        if (argc == 4) {
            const char* end = argv[3] + std::strlen(argv[3]);
            const auto [stop, error] = std::from_chars(argv[3], end, n);
            if (error != std::errc() || stop != end || n == 0 || n > kLargestSize) {
                return usage();
            }
        }
        try {
            Tree tree(argv[2]);
            corpus.make(tree, n);
        } catch (const std::exception& error) {
            std::fprintf(stderr, "makecorpus: %s\n", error.what());
            return 1;
        }
        return 0;
    }
    return usage();
}
