// SPDX-License-Identifier: MIT
#pragma once

#include "FolderListing.h"

#include <optional>

namespace platform {

/// A point in time split into calendar fields (proleptic Gregorian calendar).
struct tSystemTime {
    int wYear = 0;
    int wMonth = 0; ///< 1 to 12
    int wDay = 0;   ///< 1 to 31
    int wHour = 0;
    int wMinute = 0;
    int wSecond = 0;
};

/// Converts a time from UTC to the user's local time, in place. Returns false and changes nothing if the
/// calendar cannot express it.
bool FileTimeToLocalFileTime(tFileTime& ftTime);

/// Splits a time without converting it. Returns false if the calendar cannot express it: years 100 to 9999.
bool FileTimeToSystemTime(const tFileTime& ftTime, tSystemTime& stTime);

/// Both steps: converts a time from UTC to local time and splits it. Empty if the calendar cannot express it.
std::optional<tSystemTime> LocalTime(tFileTime ftTime);

/// The date value of a split time: whole days since 30 December 1899, with the time of day as the fraction.
/// For earlier dates the whole part is negative and the fraction counts away from 0.
double DateValue(const tSystemTime& stTime);

/// The split time of a date value, to the second.
tSystemTime SplitDateValue(double dtDate);

/// The current local time as a date value.
double Now();

} // namespace platform
