#include "TemporaryFile.h"

#include "Retried.h"

#include <array>
#include <fcntl.h>
#include <sys/random.h>
#include <unistd.h>

namespace desktop {
namespace {

/// Of one length, whatever the final name: that one may be as long as a name can be. Empty if the system has
/// no random numbers to give.
std::string UnguessableName()
{
    std::array<unsigned char, 16> aRandom{};
    if (Retried([&] { return getrandom(aRandom.data(), aRandom.size(), 0); }) !=
        static_cast<ssize_t>(aRandom.size())) {
        return {};
    }
    std::string sName = ".tallyfen-";
    for (const unsigned char n : aRandom) {
        sName += "0123456789abcdef"[n >> 4];
        sName += "0123456789abcdef"[n & 15];
    }
    return sName;
}

} // namespace

TemporaryFile::TemporaryFile(const TargetFolder& folder) : m_folder(folder), m_sName(UnguessableName())
{
    constexpr int nFlags = O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC;
    m_file = Descriptor(
        Retried([&] { return openat(m_folder.Get(), m_sName.c_str(), nFlags, S_IRUSR | S_IWUSR); }));
    if (!m_file.IsOpen()) {
        m_nError = errno;
        m_sName.clear();
    }
}

TemporaryFile::~TemporaryFile()
{
    Remove();
}

bool TemporaryFile::Remove()
{
    const bool bGone =
        m_sName.empty() || Retried([&] { return unlinkat(m_folder.Get(), m_sName.c_str(), 0); }) == 0;
    m_sName.clear();
    return bGone;
}

} // namespace desktop
