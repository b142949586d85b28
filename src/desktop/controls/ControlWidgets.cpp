// SPDX-License-Identifier: MIT
#include "ControlWidgets.h"

#include "LabelWidget.h"
#include "ListViewWidget.h"
#include "PictureBoxView.h"
#include "Pictures.h"
#include "ShownText.h"
#include "StatusBar.h"
#include "StatusBarWidget.h"
#include "Toolbar.h"
#include "ToolbarWidget.h"
#include "Widgets.h"

#include <QPainter>
#include <QProgressBar>
#include <QPushButton>
#include <algorithm>

namespace desktop {
namespace {

/// Distance of a button's text from its edges, in pixels.
constexpr int kButtonMargin = 8;

class ButtonView final : public ViewOf<platform::CommandButton, QPushButton>
{
public:
    ButtonView(const platform::Form& form, platform::CommandButton& button, QWidget* pParent)
        : ViewOf(form, button, pParent)
    {
        m_widget.setAutoDefault(true); // Enter presses the button that has the focus
        connect(&m_widget, &QPushButton::clicked, this, [this] {
            if (TakesInput() && m_control.Click) {
                m_control.Click();
            }
        });
    }

    void Follow() override
    {
        m_widget.setText(ShownText(m_control.Caption()));
        ControlView::Follow();
    }

protected:
    /// Wide enough for the text, but within the parent.
    [[nodiscard]] QRect Place() const override
    {
        QRect place = ControlView::Place();
        const int nText = m_widget.fontMetrics().size(Qt::TextShowMnemonic, m_widget.text()).width();
        place.setWidth(std::max(place.width(), nText + 2 * kButtonMargin));
        const int nOutside = place.right() + 1 - m_widget.parentWidget()->width();
        place.moveLeft(place.left() - std::clamp(nOutside, 0, place.width() - ControlView::Place().width()));
        return place;
    }
};

class PictureWidget final : public QWidget
{
public:
    using QWidget::QWidget;

    void Show(const QIcon& icon)
    {
        m_icon = icon;
        update();
    }

protected:
    void paintEvent(QPaintEvent* /*pEvent*/) override
    {
        QPainter painter(this);
        m_icon.paint(&painter, rect());
    }

private:
    QIcon m_icon;
};

class ImageView final : public ViewOf<platform::Image, PictureWidget>
{
public:
    using ViewOf::ViewOf;

    void Follow() override
    {
        m_widget.Show(Picture(m_control.Picture()));
        ControlView::Follow();
    }
};

class ProgressView final : public ViewOf<platform::NativeProgressBar, QProgressBar>
{
public:
    ProgressView(const platform::Form& form, platform::NativeProgressBar& progress, QWidget* pParent)
        : ViewOf(form, progress, pParent)
    {
        m_widget.setRange(0, platform::NativeProgressBar::kFull);
        m_widget.setTextVisible(false);
        m_widget.setAccessibleName(QStringLiteral("Progress"));
    }

    void Follow() override
    {
        m_widget.setValue(m_control.Position());
        ControlView::Follow();
    }
};

/// A list shows its rows by itself; this only sets its geometry.
class ListPlaceView final : public ControlView
{
public:
    ListPlaceView(const platform::Form& form, platform::ListView& list, QWidget* pParent)
        : ControlView(form, list, *new ListViewWidget(list, pParent))
    {
    }
    ListPlaceView(const ListPlaceView&) = delete;
    ListPlaceView& operator=(const ListPlaceView&) = delete;
    ~ListPlaceView() override { static_cast<ListViewWidget&>(Widget()).LetGo(); }
};

template <typename View, typename Kind>
std::unique_ptr<ControlView> ShowIf(const platform::Form& form, platform::Control& control, QWidget& parent)
{
    auto* const pControl = dynamic_cast<Kind*>(&control);
    return pControl == nullptr ? nullptr : std::make_unique<View>(form, *pControl, &parent);
}

} // namespace

std::unique_ptr<ControlView> ShowControl(const platform::Form& form, platform::Control& control,
                                         QWidget& parent)
{
    static const auto kWays = {&ShowIf<LabelView, platform::Label>,
                               &ShowIf<ButtonView, platform::CommandButton>,
                               &ShowIf<PictureBoxView, platform::PictureBox>,
                               &ShowIf<ImageView, platform::Image>,
                               &ShowIf<ProgressView, platform::NativeProgressBar>,
                               &ShowIf<ToolbarView, platform::Toolbar>,
                               &ShowIf<StatusBarView, platform::StatusBar>,
                               &ShowIf<ListPlaceView, platform::ListView>};
    for (const auto show : kWays) {
        if (auto view = show(form, control, parent)) {
            view->Follow();
            view->Flush();
            if (!control.sSpokenName.empty()) {
                view->Widget().setAccessibleName(ShownText(control.sSpokenName));
            }
            return view;
        }
    }
    return nullptr;
}

} // namespace desktop
