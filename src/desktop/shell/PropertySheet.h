// SPDX-License-Identifier: MIT
#pragma once

#include "StandingWindow.h"

#include <string>
#include <utility>
#include <vector>

class QScrollArea;

namespace desktop {

/// The properties of a file, line by line: label and value.
using tProperties = std::vector<std::pair<QString, QString>>;

/// The properties of the file at `sPath`; for a link, those of the link itself. Empty if it does not exist.
tProperties PropertiesOf(const std::string& sPath);

/// A window that shows properties as text that can be copied. Closed by its button or Esc.
class PropertySheet final : public StandingWindow
{
public:
    /// Shows the properties of a file in the window already open for that file, or in a new one.
    static void Show(QWidget* pOpenedFrom, const std::string& sPath, const tProperties& properties);

private:
    PropertySheet(QWidget* pOpenedFrom, std::string sPath, const QString& sTitle);
    void Fill(const tProperties& properties);

    std::string m_sPath;
    QScrollArea* m_pArea;
};

} // namespace desktop
