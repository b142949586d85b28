// SPDX-License-Identifier: MIT
#include "AskAside.h"

#include <atomic>
#include <system_error>
#include <thread>

namespace desktop {
namespace {

std::atomic<int> g_nThreads{0};

} // namespace

void RunAside(const std::function<void()>& work)
{
    ++g_nThreads;
    try {
        std::thread([work] {
            work();
            --g_nThreads;
        }).detach();
    } catch (const std::system_error&) {
        work();
        --g_nThreads;
    }
}

int ThreadsAside()
{
    return g_nThreads;
}

} // namespace desktop
