// SPDX-License-Identifier: MIT
#include "StatusBarWidget.h"

#include "ShownText.h"
#include "SpokenRole.h"
#include "StatusBar.h"
#include "ToolkitValues.h"
#include "Twips.h"
#include "WidgetOf.h"

#include <QHBoxLayout>
#include <QPainter>
#include <qdrawutil.h>

namespace desktop {
namespace {

constexpr int kGap = 2;
constexpr int kBevel = 1;
constexpr int kTextMargin = 4;

} // namespace

/// A text in a sunken frame.
class PanelWidget final : public QLabel
{
public:
    using QLabel::QLabel;

protected:
    void paintEvent(QPaintEvent* pEvent) override
    {
        QLabel::paintEvent(pEvent);
        // Painted here rather than as the label's frame, since not every style draws all four sides of that.
        QPainter painter(this);
        qDrawShadePanel(&painter, rect(), palette(), true);
    }
};

/// Shows one panel; the bar sets its position.
class StatusBarView::PanelView final : public platform::Observer
{
public:
    PanelView(platform::Panel& panel, QWidget* pParent) : m_panel(panel), m_label(*new PanelWidget(pParent))
    {
        m_label.setTextFormat(Qt::PlainText);
        m_label.setContentsMargins(kTextMargin, kBevel, kTextMargin, kBevel);
        m_label.setAlignment(AlignmentOf(m_panel.alignment));
        m_label.setMinimumWidth(Pixels(m_panel.MinWidth));
        m_label.setSizePolicy(m_panel.bSpring ? QSizePolicy::Ignored : QSizePolicy::Minimum,
                              QSizePolicy::Preferred);
        // As plain text a tool tip keeps leading and trailing blanks.
        m_label.setToolTip(ShownText(m_panel.sToolTip));
        EnterWidget(m_panel, &m_label);
        m_panel.Observe(this);
        StateChanged(m_panel);
    }
    PanelView(const PanelView&) = delete;
    PanelView& operator=(const PanelView&) = delete;
    ~PanelView() override
    {
        m_panel.Observe(nullptr);
        RemoveWidget(m_panel);
    }

    [[nodiscard]] QLabel& Widget() const { return m_label; }

    void StateChanged(platform::Observable& /*control*/) override
    {
        m_label.setText(ShownText(m_panel.Text()));
    }

private:
    platform::Panel& m_panel;
    QLabel& m_label;
};

StatusBarView::StatusBarView(const platform::Form& form, platform::StatusBar& bar, QWidget* pParent)
    : DockedView(form, bar, *new QWidget(pParent))
{
    GiveSpokenRole(Widget(), QAccessible::StatusBar);
    Widget().setAutoFillBackground(true); // in a very low window it covers lists
    auto* const pRow = new QHBoxLayout(&Widget());
    pRow->setContentsMargins(0, kGap, 0, 0);
    pRow->setSpacing(kGap);
    for (std::size_t n = 1; n <= bar.PanelCount(); ++n) {
        m_panels.push_back(std::make_unique<PanelView>(bar.Panels(n), &Widget()));
        pRow->addWidget(&m_panels.back()->Widget(), bar.Panels(n).bSpring ? 1 : 0);
    }
}

StatusBarView::~StatusBarView() = default;

} // namespace desktop
