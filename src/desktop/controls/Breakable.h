// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace desktop {

/// Prepares a text for a label with word wrap, which breaks lines only between words: long runs without
/// blanks, such as a file name wider than the screen, get additional break opportunities. No character is
/// removed.
QString Breakable(const QString& sText);

} // namespace desktop
