// SPDX-License-Identifier: MIT
#pragma once

#include "Observable.h"

#include <functional>
#include <string>
#include <vector>

namespace platform {

/// An item of a menu, a submenu, or a separator line.
class MenuItem : public Observable
{
public:
    std::function<void()> Click;

    /// The caption; "&" precedes the letter of the access key, and "-" alone is a separator.
    std::string sCaption;

    /// The shortcut key, for example "F2"; empty for none.
    std::string sShortcut;

    /// The items of a submenu; not owned.
    std::vector<MenuItem*> items;

    /// A disabled item cannot be chosen.
    [[nodiscard]] bool Enabled() const { return m_bEnabled; }
    void SetEnabled(bool New_Enabled) { Change(m_bEnabled, New_Enabled); }

    [[nodiscard]] bool Checked() const { return m_bChecked; }
    void SetChecked(bool New_Checked) { Change(m_bChecked, New_Checked); }

private:
    bool m_bEnabled = true;
    bool m_bChecked = false;
};

} // namespace platform
