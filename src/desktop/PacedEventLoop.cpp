#include "PacedEventLoop.h"

#include <utility>

namespace desktop {
namespace {

/// A frame of a usual screen: more runs could show nothing, fewer could be felt.
constexpr std::chrono::milliseconds kPace{16};

} // namespace

PacedEventLoop::PacedEventLoop(std::function<void()> runOnce) : m_runOnce(std::move(runOnce)) {}

void PacedEventLoop::DoEvents(std::int64_t /*nSteps*/)
{
    if (std::chrono::steady_clock::now() - m_lastRun < kPace) {
        return;
    }
    m_runOnce();
    m_lastRun = std::chrono::steady_clock::now();
}

} // namespace desktop
