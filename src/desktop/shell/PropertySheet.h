// SPDX-License-Identifier: MIT
#pragma once

#include "StandingWindow.h"

#include <string>
#include <utility>
#include <vector>

class QScrollArea;

namespace desktop {

/// What is known of a file, line by line: what it is called, and what it is.
using tProperties = std::vector<std::pair<QString, QString>>;

/// The properties of the file that `sPath` names; of a link, those of the link. Empty if it is not there.
tProperties PropertiesOf(const std::string& sPath);

/// A window that shows properties, to be read and copied, until it is closed, by its button or Esc.
class PropertySheet final : public StandingWindow
{
public:
    /// Shows what is known of a file: in the sheet that is open for it, else in a new one.
    static void Show(QWidget* pOpenedFrom, const std::string& sPath, const tProperties& properties);

private:
    PropertySheet(QWidget* pOpenedFrom, std::string sPath, const QString& sTitle);
    void Fill(const tProperties& properties);

    std::string m_sPath;
    QScrollArea* m_pArea;
};

} // namespace desktop
