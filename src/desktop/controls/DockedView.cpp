// SPDX-License-Identifier: MIT
#include "DockedView.h"

#include "Twips.h"

#include <algorithm>

namespace desktop {

void DockedView::Dock(QSize inside)
{
    const int nHeight = std::max(Pixels(Shown().Height()), Widget().sizeHint().height());
    const int nTop = AtBottom() ? inside.height() - nHeight : 0;
    Shown().SetPlace({0, Twips(nTop), Twips(inside.width()), Twips(nHeight)});
}

} // namespace desktop
