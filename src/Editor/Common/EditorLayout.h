#pragma once

#include <QObject>
#include <QRectF>
#include <QSizeF>
#include <QtQml/qqmlregistration.h>

/// Where every page of the editor puts its parts, for one window. In portrait the bars lie above and below
/// the picture; in landscape they move to a column at the trailing side and the picture takes the rest.
/// The picture's place depends only on the window, so it stays put when the page changes.
struct EditorLayoutRects
{
    bool isLandscape = false;
    /// Where the picture is fitted.
    QRectF picture;
    /// The page's row of round buttons.
    QRectF topBar;
    /// The active tool's controls (palettes, toolbars), at most kMaxControlsWidth wide and centred.
    QRectF controls;
    /// "CANCEL" and the accept button.
    QRectF bottomBar;
    /// The base page's tabs; it reaches down under the bottom inset.
    QRectF tabBar;
};

struct EditorLayoutInput
{
    QSizeF size;
    qreal topInset = 0;
    qreal bottomInset = 0;
};

EditorLayoutRects editorLayout(const EditorLayoutInput& input);

/// editorLayout() for screens: set the window's size and insets, read the rectangles.
class EditorLayout : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QSizeF size READ size WRITE setSize NOTIFY inputChanged)
    Q_PROPERTY(qreal topInset READ topInset WRITE setTopInset NOTIFY inputChanged)
    Q_PROPERTY(qreal bottomInset READ bottomInset WRITE setBottomInset NOTIFY inputChanged)
    Q_PROPERTY(bool isLandscape READ isLandscape NOTIFY rectsChanged)
    Q_PROPERTY(QRectF picture READ picture NOTIFY rectsChanged)
    Q_PROPERTY(QRectF topBar READ topBar NOTIFY rectsChanged)
    Q_PROPERTY(QRectF controls READ controls NOTIFY rectsChanged)
    Q_PROPERTY(QRectF bottomBar READ bottomBar NOTIFY rectsChanged)
    Q_PROPERTY(QRectF tabBar READ tabBar NOTIFY rectsChanged)

public:
    static constexpr qreal kTopBarHeight = 60;
    static constexpr qreal kBottomBarHeight = 76;
    static constexpr qreal kTabBarHeight = 72;
    /// The tallest tool controls (the canvas's): every page keeps room for them, so the picture never moves.
    static constexpr qreal kControlsHeight = 152;
    static constexpr qreal kMaxControlsWidth = 600;
    static constexpr qreal kMargin = 8;

    using QObject::QObject;

    QSizeF size() const { return m_input.size; }
    void setSize(QSizeF size);
    qreal topInset() const { return m_input.topInset; }
    void setTopInset(qreal inset);
    qreal bottomInset() const { return m_input.bottomInset; }
    void setBottomInset(qreal inset);

    bool isLandscape() const { return m_rects.isLandscape; }
    QRectF picture() const { return m_rects.picture; }
    QRectF topBar() const { return m_rects.topBar; }
    QRectF controls() const { return m_rects.controls; }
    QRectF bottomBar() const { return m_rects.bottomBar; }
    QRectF tabBar() const { return m_rects.tabBar; }

signals:
    void inputChanged();
    void rectsChanged();

private:
    void update();

    EditorLayoutInput m_input;
    EditorLayoutRects m_rects;
};
