// SPDX-License-Identifier: MIT
#pragma once

#include "NativeWindow.h"

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace platform {

/// A button of a toolbar, with its icon above its caption; one without a key is a separator.
struct tToolbarButton {
    std::string sKey;
    std::string sCaption;
    std::string sToolTip;
    std::string sPicture; ///< the name of the icon
};

/// The toolbar along the top of a form: a frame around a native window, which has the style.
class Toolbar : public NativeWindow
{
public:
    /// The native window inside the frame.
    class Bar : public NativeWindow
    {
    public:
        static constexpr std::string_view kClass = "ToolbarWindow32";
        static constexpr unsigned TB_SETSTYLE = 1080;
        static constexpr unsigned TB_GETSTYLE = 1081;
        static constexpr long TBSTYLE_FLAT = 0x800;

        [[nodiscard]] std::string_view ClassName() const override { return kClass; }
        long Message(unsigned nMessage, long wParam, long lParam) override;
        [[nodiscard]] bool IsFlat() const { return (m_nStyle & TBSTYLE_FLAT) != 0; }

    private:
        long m_nStyle = 0;
    };

    Toolbar() { native.SetParent(this); }

    /// Called with the key of a button when it is pressed.
    std::function<void(const std::string& sKey)> ButtonClick;

    std::vector<tToolbarButton> buttons; ///< fixed after the design
    Bar native;
};

} // namespace platform
