// SPDX-License-Identifier: MIT
#pragma once

#include "Control.h"

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace platform {

/// A button of a toolbar, its picture above its caption; one without a key is a separator.
struct tToolbarButton {
    std::string sKey;
    std::string sCaption;
    std::string sToolTip;
    std::string sPicture; ///< the name of its drawing
};

/// The bar of buttons along the top of a form. It is a frame around a native window, which has the style.
class Toolbar : public Control
{
public:
    /// The window inside.
    class NativeWindow : public Control
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

    /// A button was pressed; told with its key.
    std::function<void(const std::string& sKey)> ButtonClick;

    std::vector<tToolbarButton> buttons; ///< fixed from the design on
    NativeWindow native;
};

} // namespace platform
