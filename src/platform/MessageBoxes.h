// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

namespace platform {

/// The icons of a message box.
enum class MessageIcon { Stop = 16, Exclamation = 48 };

/// The modal message boxes.
class MessageBoxes
{
public:
    virtual ~MessageBoxes() = default;

    /// Shows `sText` with an icon, an OK button and the program's title; returns when it is closed. Lines end
    /// in CR LF. Names in the text have to be escaped already.
    virtual void Show(std::string_view sText, MessageIcon icon) = 0;
};

} // namespace platform
