#pragma once

#include "ShellDialog.h"

#include <string>
#include <utility>
#include <vector>

namespace desktop {

/// What is known of a file, line by line: what it is called, and what it is.
using tProperties = std::vector<std::pair<QString, QString>>;

/// The properties of the file that `sPath` names; of a link, those of the link. Empty if it is not there.
tProperties PropertiesOf(const std::string& sPath);

/// A window that shows properties, to be read and copied. It stays beside the program's until it is closed,
/// by its button or Esc, or its owner goes; then it deletes itself.
class PropertySheet final : public ShellDialog
{
public:
    PropertySheet(QWidget* pOwner, const tProperties& properties);
};

} // namespace desktop
