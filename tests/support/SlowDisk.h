// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <string>

/// Every call of this program that opens, lists or reads passes through here, so that a disk can be as slow
/// and as faithless as wanted. As a library to be loaded before others it goes by the environment:
/// SLOWDISK_MS is how long each open and each listing takes longer, and nothing returns that opens, lists or
/// reads SLOWDISK_STUCK.
namespace support::disk {

enum class Call { Open, List, Read };

/// From now on `act` is called, on the thread that calls, before each such call on what is named `sName`.
/// Calls within `act` pass.
void Arm(Call call, const std::string& sName, std::function<void()> act);

/// Ends it; who is in `act` stays there.
void Disarm();

} // namespace support::disk
