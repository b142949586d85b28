// SPDX-License-Identifier: MIT
#pragma once

#include "Control.h"
#include "Observable.h"

#include <cstddef>
#include <deque>
#include <string>
#include <string_view>

namespace platform {

/// One field of a status bar.
class Panel : public Observable
{
public:
    std::string sToolTip;                  ///< including leading and trailing blanks
    float MinWidth = 0;                    ///< twips
    bool bSpring = false;                  ///< takes up the remaining width; otherwise as wide as its text
    Alignment alignment = Alignment::Left; ///< of the text

    [[nodiscard]] const std::string& Text() const { return m_sText; }
    void SetText(std::string_view New_Text) { Change(m_sText, New_Text); }

private:
    std::string m_sText;
};

/// The status bar along the bottom of a window, a row of panels.
class StatusBar : public Control
{
public:
    explicit StatusBar(std::size_t nPanels) : m_panels(nPanels) {}

    /// Panel `n`, counted from 1.
    [[nodiscard]] Panel& Panels(std::size_t n) { return m_panels.at(n - 1); }
    [[nodiscard]] std::size_t PanelCount() const { return m_panels.size(); }

private:
    std::deque<Panel> m_panels;
};

} // namespace platform
