// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <string_view>

namespace desktop {

/// A text from the file system as displayed. Valid and visible UTF-8 is shown as it is; every other byte is
/// written as `\xNN`, and so is a backslash that would read as such an escape. So no name can fake a line
/// break, two different names never look the same, and the bytes can be recovered from the displayed text.
QString ShownText(std::string_view sText);

/// A text of the program as displayed: lines end at CR LF, and each is converted by ShownText.
QString ShownLines(std::string_view sText);

/// Prepares a text for a label with word wrap, which breaks lines only between words: long runs without
/// blanks, such as a file name wider than the screen, get additional break opportunities. No character is
/// removed.
QString Breakable(const QString& sText);

/// The system's message for an error number, as a sentence in the user's language.
QString ErrorSentence(int nError);

// Texts that may contain any name, for places in which the toolkit looks for more than text.

/// A window title, in which it looks for a placeholder.
QString AsTitle(QString sText);

/// A tool tip, in which it looks for markup.
QString AsToolTip(const QString& sText);

} // namespace desktop
