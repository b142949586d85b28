// SPDX-License-Identifier: MIT
#pragma once

class QTreeView;

namespace desktop {

/// Lets assistive programs press the column headers of `view`: as the toolkit reports them, they have only a
/// name and a position. Must be called before the view is shown.
void GivePressableHeader(QTreeView& view);

} // namespace desktop
