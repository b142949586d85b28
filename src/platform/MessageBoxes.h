// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

namespace platform {

/// The icons of a message box.
enum class MessageIcon { Stop = 16, Exclamation = 48 };

/// The modal messages that the user answers.
class MessageBoxes
{
public:
    virtual ~MessageBoxes() = default;

    /// Shows `sText` with an icon, an OK button and the program's title; returns when it is closed. Lines end
    /// in CR LF; names in the text stand escaped.
    virtual void Show(std::string_view sText, MessageIcon icon) = 0;
};

} // namespace platform
