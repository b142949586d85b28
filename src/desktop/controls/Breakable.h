// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace desktop {

/// A text for a label that breaks its lines. Those break between words only: a name without blanks, which can
/// be longer than the screen is wide, gets places within where a line may end. Nothing of it is left out.
QString Breakable(const QString& sText);

} // namespace desktop
