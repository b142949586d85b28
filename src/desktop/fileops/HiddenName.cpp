// SPDX-License-Identifier: MIT
#include "HiddenName.h"

#include "FileIdentity.h"
#include "Retried.h"

#include <algorithm>
#include <array>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/random.h>

namespace desktop {
namespace {

constexpr std::string_view kOurs = ".tallyfen-";
constexpr std::size_t kRandom = 22; // characters of 6 bits each

std::string Start(HiddenKind kind)
{
    return std::string(kOurs) + static_cast<char>(kind) + '-';
}

constexpr std::size_t kLength = kOurs.size() + 2 + kRandom; // without the original name

} // namespace

std::string HiddenName(HiddenKind kind, std::string_view sOriginal)
{
    constexpr std::string_view kLetters = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+_";
    std::array<unsigned char, kRandom> aRandom{};
    if (Retried([&] { return getrandom(aRandom.data(), aRandom.size(), 0); }) !=
        static_cast<ssize_t>(aRandom.size())) {
        return {};
    }
    std::string sName = Start(kind);
    for (const unsigned char n : aRandom) {
        sName += kLetters[n % kLetters.size()];
    }
    return sOriginal.empty() ? sName : sName.append("-").append(sOriginal);
}

Descriptor MakeLocked(int hFolder, HiddenKind kind, std::string& sName)
{
    constexpr int nFlags = O_RDWR | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC;
    constexpr int kTries = 8;
    for (int nTry = 0; nTry < kTries; ++nTry) {
        sName = HiddenName(kind);
        Descriptor file(Retried([&] { return openat(hFolder, sName.c_str(), nFlags, S_IRUSR | S_IWUSR); }));
        if (!file.IsOpen()) {
            sName.clear();
            return file;
        }
        // Before the lock, another run may have mistaken the file for one of a terminated run and removed it.
        // Without support for locks no run does that.
        const bool bLocked = Retried([&] { return flock(file.Get(), LOCK_EX | LOCK_NB); }) == 0;
        if (bLocked ? LookAt(hFolder, sName).IsSameFileAs(LookAt(file.Get())) : errno != EWOULDBLOCK) {
            return file;
        }
    }
    sName.clear();
    errno = EAGAIN;
    return {};
}

bool IsHiddenName(std::string_view sName, HiddenKind kind)
{
    return sName.starts_with(Start(kind)) &&
           (sName.size() == kLength || (sName.size() > kLength + 1 && sName[kLength] == '-'));
}

std::string_view OriginalName(std::string_view sHiddenName)
{
    return sHiddenName.substr(std::min(kLength + 1, sHiddenName.size()));
}

} // namespace desktop
