// SPDX-License-Identifier: MIT
#pragma once

#include "FolderListing.h"

#include <optional>

namespace platform {

/// A moment split into its calendar fields (proleptic Gregorian calendar).
struct tSystemTime {
    int wYear = 0;
    int wMonth = 0; ///< 1 to 12
    int wDay = 0;   ///< 1 to 31
    int wHour = 0;
    int wMinute = 0;
    int wSecond = 0;
};

/// Turns a moment in UTC into one in the user's local time, in place. False, with nothing changed, if the
/// calendar cannot express it.
bool FileTimeToLocalFileTime(tFileTime& ftTime);

/// Splits a moment, taking it as it stands. False if the calendar cannot express it: years 100 to 9999.
bool FileTimeToSystemTime(const tFileTime& ftTime, tSystemTime& stTime);

/// Both: a moment in UTC, split in the user's local time. Nothing if the calendar cannot express it.
std::optional<tSystemTime> LocalTime(tFileTime ftTime);

/// The date value of a split moment: whole days since 30 December 1899, the fraction being the time of day
/// (before that day the whole number is negative and the fraction counts away from 0).
double DateValue(const tSystemTime& stTime);

/// The split moment of a date value, to the second.
tSystemTime SplitDateValue(double dtDate);

} // namespace platform
