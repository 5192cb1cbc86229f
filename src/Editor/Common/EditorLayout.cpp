#include "EditorLayout.h"

#include <QtMath>
#include <algorithm>

EditorLayoutRects editorLayout(const EditorLayoutInput& input)
{
    constexpr qreal margin = EditorLayout::kMargin;
    const qreal width = std::max<qreal>(0, input.size.width());
    const qreal height = std::max<qreal>(0, input.size.height());
    const qreal top = std::max<qreal>(0, input.topInset);
    const qreal bottom = std::max<qreal>(0, input.bottomInset);
    EditorLayoutRects rects;
    rects.isLandscape = width > height;

    // The column that holds the bars: the whole width in portrait, a side column in landscape, wide enough
    // for the four tabs and the two closing buttons.
    qreal columnX = 0;
    qreal columnWidth = width;
    if (rects.isLandscape) {
        columnWidth = std::min(width, std::clamp(qRound(width * 0.4) * 1.0, 320.0, 400.0));
        columnX = width - columnWidth;
    }
    rects.topBar = QRectF(columnX, top, columnWidth, EditorLayout::kTopBarHeight);
    rects.bottomBar = QRectF(columnX, height - bottom - EditorLayout::kBottomBarHeight, columnWidth,
                             EditorLayout::kBottomBarHeight);
    rects.tabBar = QRectF(columnX, height - bottom - EditorLayout::kTabBarHeight, columnWidth,
                          EditorLayout::kTabBarHeight + bottom);
    const qreal controlsWidth = std::min(columnWidth, EditorLayout::kMaxControlsWidth);
    rects.controls = QRectF(columnX + (columnWidth - controlsWidth) / 2,
                            rects.bottomBar.top() - margin - EditorLayout::kControlsHeight, controlsWidth,
                            EditorLayout::kControlsHeight);

    if (rects.isLandscape) {
        rects.picture =
            QRectF(margin, top + margin, columnX - 2 * margin, height - top - bottom - 2 * margin);
    } else {
        const qreal pictureTop = rects.topBar.bottom();
        rects.picture =
            QRectF(margin, pictureTop, width - 2 * margin, rects.controls.top() - margin - pictureTop);
    }
    // A window too small for the bars still gets a picture rectangle, only an empty one.
    rects.picture.setWidth(std::max<qreal>(0, rects.picture.width()));
    rects.picture.setHeight(std::max<qreal>(0, rects.picture.height()));
    return rects;
}

void EditorLayout::setSize(QSizeF size)
{
    if (size == m_input.size)
        return;
    m_input.size = size;
    emit inputChanged();
    update();
}

void EditorLayout::setTopInset(qreal inset)
{
    if (inset == m_input.topInset)
        return;
    m_input.topInset = inset;
    emit inputChanged();
    update();
}

void EditorLayout::setBottomInset(qreal inset)
{
    if (inset == m_input.bottomInset)
        return;
    m_input.bottomInset = inset;
    emit inputChanged();
    update();
}

void EditorLayout::update()
{
    m_rects = editorLayout(m_input);
    emit rectsChanged();
}
