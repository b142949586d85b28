// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <future>
#include <memory>
#include <type_traits>
#include <utility>

namespace desktop {

/// Runs `work`, which must own all it uses and must not throw, in a thread of its own; in the calling one if
/// none can be created.
void RunAside(const std::function<void()>& work);

/// The number of these threads that are still running. While it is not 0 the program must end by _exit, since
/// what they use must not be destroyed.
int ThreadsAside();

/// Calls `ask`, which must own all it uses, in a thread of its own: a disk or network may never answer. The
/// destructor of the result does not wait.
template <typename Ask>
std::future<std::invoke_result_t<Ask>> AskAside(Ask ask)
{
    const auto pTask = std::make_shared<std::packaged_task<std::invoke_result_t<Ask>()>>(std::move(ask));
    auto answer = pTask->get_future();
    RunAside([pTask] { (*pTask)(); });
    return answer;
}

} // namespace desktop
