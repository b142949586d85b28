// SPDX-License-Identifier: MIT
#include "PosixTextFiles.h"

#include "Retried.h"

#include <cerrno>
#include <fcntl.h>
#include <unistd.h>

namespace desktop {
namespace {

constexpr std::size_t kPiece = std::size_t{64} * 1024;

} // namespace

platform::FileHandle PosixTextFiles::OpenForOutput(const std::string& sPath)
{
    // Without O_NONBLOCK, opening a pipe without a reader would block.
    constexpr mode_t kMode = 0666;
    const int h =
        open(sPath.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_NOCTTY | O_NONBLOCK | O_CLOEXEC, kMode);
    if (h < 0) {
        return platform::INVALID_HANDLE_VALUE;
    }
    m_outputs[h] = {};
    return h;
}

bool PosixTextFiles::PrintLine(platform::FileHandle hFile, std::string_view sLine)
{
    const auto found = m_outputs.find(hFile);
    if (found == m_outputs.end()) {
        return false;
    }
    tOutput& output = found->second;
    if (!output.bFailed) {
        output.sHeldBack += sLine;
        output.sHeldBack += "\r\n";
        if (output.sHeldBack.size() >= kPiece) {
            WriteOut(hFile, output);
        }
    }
    return !output.bFailed;
}

/// Writes as much as possible of the buffered text.
void PosixTextFiles::WriteOut(platform::FileHandle hFile, tOutput& output)
{
    std::string_view sRest = output.sHeldBack;
    while (!sRest.empty() && !output.bFailed) {
        const ssize_t nWritten = Retried([&] { return write(hFile, sRest.data(), sRest.size()); });
        output.bFailed = nWritten <= 0;
        if (!output.bFailed) {
            sRest.remove_prefix(static_cast<std::size_t>(nWritten));
        }
    }
    output.sHeldBack.clear();
}

bool PosixTextFiles::CloseOutput(platform::FileHandle hFile)
{
    const auto found = m_outputs.find(hFile);
    if (found == m_outputs.end()) {
        return false;
    }
    WriteOut(hFile, found->second);
    // A network file system may report only now that the disk is full. The handle is closed in either case.
    const bool bClosed = close(hFile) == 0 || errno == EINTR;
    const bool bWhole = !found->second.bFailed && bClosed;
    m_outputs.erase(found);
    return bWhole;
}

} // namespace desktop
