// SPDX-License-Identifier: MIT
#pragma once

#include <QLabel>
#include <string>

namespace desktop {

/// A path on one line, shortened in the middle if it is too long. The whole path is the tool tip and the
/// accessible text.
class PathLabel final : public QLabel
{
public:
    explicit PathLabel(QWidget* pParent = nullptr);

    /// `sPath` is exact bytes.
    void ShowPath(const std::string& sPath);

    [[nodiscard]] QSize minimumSizeHint() const override { return {0, fontMetrics().height()}; }
    [[nodiscard]] QSize sizeHint() const override
    {
        return {fontMetrics().horizontalAdvance(text()), fontMetrics().height()};
    }

protected:
    void paintEvent(QPaintEvent* pEvent) override;

private:
    std::string m_sPath;
};

} // namespace desktop
