// The widgets of the preview that paint themselves: the desk, the viewport on it and the page
// surface inside. Which page is shown and where it stands is decided in statement_form.
#pragma once

#include "statement/statement_pages.h"

#include <QWidget>

#include <functional>

class QScrollBar;

/// The page on screen, 649 x 918 pixels, black on white on every desktop. Only what is visible is
/// painted; there is no bitmap.
class PageSurface : public QWidget {
public:
    PageSurface(QWidget* parent, std::function<PageContents()> contents);

    /// Shows the page that much larger or smaller; 100 is page pixel for pixel.
    void SetZoom(int percent);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    std::function<PageContents()> m_contents; ///< what stands on the shown page
    int m_zoom = 100; ///< percent
};

/// The viewport: as wide as a page, as high as the desk. Wheel and keys move the scroll bar.
class PageViewport : public QWidget {
public:
    PageViewport(QWidget* parent, QScrollBar* scroll_bar);

    /// As wide as the page at that zoom where the desk has the room.
    void SetZoom(int percent);

    void wheelEvent(QWheelEvent* event) override; ///< public for the desk around it

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    QScrollBar* m_scroll_bar;
    double m_wheel_rest = 0.0; ///< steps of a fine wheel that did not make a whole one yet
};

/// The grey desk with the edge and the shadow of the page that lies on it. The wheel turns the page
/// beside it too.
class PreviewDesk : public QWidget {
public:
    explicit PreviewDesk(QWidget* parent);

    const QWidget* Page = nullptr; ///< the page surface, a grandchild of the desk
    PageViewport* Viewport = nullptr; ///< gets the desk's wheel

protected:
    void wheelEvent(QWheelEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
};
