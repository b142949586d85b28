// SPDX-License-Identifier: MIT
#pragma once

class QTreeView;

namespace desktop {

/// Lets assistive programs press the column headers of `view`: in the toolkit's own account of a view they
/// have a name and a place only. To be called before the view is shown.
void GivePressableHeader(QTreeView& view);

} // namespace desktop
