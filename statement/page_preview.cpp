#include "statement/page_preview.h"

#include "statement/page_player.h"

#include <QApplication>
#include <QKeyEvent>
#include <QPainter>
#include <QScrollBar>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>
#include <utility>

namespace {

constexpr int shadow_width = 7; // pixels
constexpr int steps_per_notch = 6; // of ten pixels each

void Play(QPainter& painter, const PageItems* items, double scale)
{
    if (items != nullptr)
        PlayPage(painter, *items, scale);
}

bool IsDark(const QPalette& palette) { return palette.color(QPalette::Window).lightness() < 128; }

void PaintShadow(QPainter& painter, const QRect& page, bool dark)
{
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    for (int i = shadow_width; i > 0; --i) {
        painter.setBrush(QColor(0, 0, 0, dark ? 22 : 11));
        painter.drawRoundedRect(page.translated(1, 2).adjusted(-i, -i, i, i), i, i);
    }
    painter.setRenderHint(QPainter::Antialiasing, false);
}

} // namespace

PageSurface::PageSurface(QWidget* parent, std::function<PageContents()> contents)
    : QWidget(parent)
    , m_contents(std::move(contents))
{
    setFixedSize(PageWidth, PageHeight);
    setAttribute(Qt::WA_OpaquePaintEvent);
    setAttribute(Qt::WA_TransparentForMouseEvents); // wheel and clicks are the viewport's
}

void PageSurface::SetZoom(int percent)
{
    m_zoom = percent;
    setFixedSize(PageWidth * percent / 100, PageHeight * percent / 100);
}

void PageSurface::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.fillRect(rect(), Qt::white);
    // The page is replayed in device pixels: fonts of the exact size instead of enlarged ones.
    const double scale = devicePixelRatioF();
    painter.scale(1.0 / scale, 1.0 / scale);
    const double zoomed = scale * m_zoom / 100;
    const PageContents contents = m_contents();
    Play(painter, contents.fixed, zoomed);
    Play(painter, &contents.member, zoomed);
}

PageViewport::PageViewport(QWidget* parent, QScrollBar* scroll_bar)
    : QWidget(parent)
    , m_scroll_bar(scroll_bar)
{
    setFixedWidth(PageWidth);
    setFocusPolicy(Qt::StrongFocus);
}

void PageViewport::SetZoom(int percent)
{
    const int width = PageWidth * percent / 100;
    setMinimumWidth(std::min(width, PageWidth)); // a larger page must not push the frames away
    setMaximumWidth(width);
}

void PageViewport::wheelEvent(QWheelEvent* event)
{
    constexpr double notch = QWheelEvent::DefaultDeltasPerStep;
    m_wheel_rest -= event->angleDelta().y() / notch * steps_per_notch;
    const double whole = std::trunc(m_wheel_rest);
    m_wheel_rest -= whole;
    m_scroll_bar->setValue(m_scroll_bar->value() + static_cast<int>(whole));
    event->accept();
}

void PageViewport::keyPressEvent(QKeyEvent* event)
{
    switch (event->key()) {
    case Qt::Key_Up:
        m_scroll_bar->triggerAction(QScrollBar::SliderSingleStepSub);
        break;
    case Qt::Key_Down:
        m_scroll_bar->triggerAction(QScrollBar::SliderSingleStepAdd);
        break;
    case Qt::Key_Home:
        m_scroll_bar->triggerAction(QScrollBar::SliderToMinimum);
        break;
    case Qt::Key_End:
        m_scroll_bar->triggerAction(QScrollBar::SliderToMaximum);
        break;
    default:
        QWidget::keyPressEvent(event);
    }
}

PreviewDesk::PreviewDesk(QWidget* parent)
    : QWidget(parent)
{
    setAttribute(Qt::WA_OpaquePaintEvent);
}

void PreviewDesk::wheelEvent(QWheelEvent* event)
{
    // Called, not sent: what the viewport does not want would come back to the desk.
    if (Viewport != nullptr)
        Viewport->wheelEvent(event);
}

void PreviewDesk::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    const bool dark = IsDark(palette());
    painter.fillRect(rect(), dark ? QColor(0x26, 0x28, 0x2b) : QColor(0xb9, 0xbe, 0xc4));
    if (Page == nullptr)
        return;
    const QRect page(Page->mapTo(this, QPoint(0, 0)), Page->size());
    PaintShadow(painter, page, dark);
    const bool focused = Page->parentWidget()->hasFocus();
    const QColor edge = dark ? QColor(0x10, 0x10, 0x10) : QColor(0x80, 0x86, 0x8c);
    painter.setPen(focused ? palette().color(QPalette::Highlight) : edge);
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(page.adjusted(-1, -1, 0, 0));
    if (focused)
        painter.drawRect(page.adjusted(-2, -2, 1, 1));
}
