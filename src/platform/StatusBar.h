#pragma once

#include "Control.h"

#include <cstddef>
#include <deque>
#include <string>
#include <string_view>

namespace platform {

/// One field of a status bar.
class Panel : public Control
{
public:
    [[nodiscard]] const std::string& Text() const { return m_sText; }
    void SetText(std::string_view New_Text) { Change(m_sText, New_Text); }

private:
    std::string m_sText;
};

/// The row of fields along the bottom of a window.
class StatusBar : public Control
{
public:
    explicit StatusBar(std::size_t nPanels) : m_panels(nPanels) {}

    /// Panel `n`, counted from 1.
    [[nodiscard]] Panel& Panels(std::size_t n) { return m_panels.at(n - 1); }

private:
    std::deque<Panel> m_panels;
};

} // namespace platform
