#pragma once

#include "Engine/Filter.h"
#include "FiltersDelegate.h"

#include <QList>
#include <QObject>
#include <QVariantList>
#include <QtQml/qqmlregistration.h>

/// A carousel of catalogue entries dragged sideways, in points of the screen. The strip stands at `offset`
/// (where its first entry starts); during a drag the screen draws it moved by the drag's translation, the
/// model selects the entry the drag has reached and tells the delegate, and when the drag ends the strip
/// snaps to whole entries.
class SelectFilterViewModel : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("A colour page creates its carousel.")
    Q_PROPERTY(qint64 selectedIndex READ selectedIndex NOTIFY selectedFilterChanged)
    Q_PROPERTY(QString selectedName READ selectedName NOTIFY selectedFilterChanged)
    /// The entries for the screen, in order: maps of `image`, `index` and `name`.
    Q_PROPERTY(QVariantList entries READ entries NOTIFY availableFiltersChanged)
    Q_PROPERTY(qreal filterImageSize READ filterImageSize CONSTANT)
    Q_PROPERTY(qreal spacing READ spacing CONSTANT)
    Q_PROPERTY(qreal offset READ offset NOTIFY offsetChanged)
    Q_PROPERTY(bool isDragging READ isDragging NOTIFY isDraggingChanged)

public:
    /// Entries of 64 points, 8 apart. \a availableFilters must not be empty; \a delegate, if any, must
    /// outlive the carousel (the page that owns it).
    SelectFilterViewModel(QList<Filter> availableFilters, FiltersDelegate* delegate,
                          QObject* parent = nullptr);

    const Filter& selectedFilter() const { return m_selectedFilter; }
    const Filter& previousFilter() const { return m_previousFilter; }
    const QList<Filter>& availableFilters() const { return m_availableFilters; }
    qint64 selectedIndex() const { return m_selectedFilter.index; }
    QString selectedName() const { return m_selectedFilter.name; }
    QVariantList entries() const;
    qreal filterImageSize() const { return m_filterImageSize; }
    qreal offset() const { return m_offset; }
    qreal maxOffset() const { return m_maxOffset; }
    qreal minOffset() const { return m_minOffset; }
    qreal spacing() const { return m_spacing; }
    bool isFirstTimeAppearing() const { return m_isFirstTimeAppearing; }
    bool isDragging() const { return m_isDragging; }

    /// The carousel's width is known: the bounds of the offset, and on the first call the first entry
    /// centred.
    Q_INVOKABLE void setupElementsSize(qreal width);
    /// A change of a running drag of \a translation points that began at \a previous; left moves to later
    /// entries.
    void handleDragOnChange(const Filter& previous, qreal translation);
    /// The same, from the entry the last drag ended on: the screen's form.
    Q_INVOKABLE void handleDragOnChange(qreal translation)
    {
        handleDragOnChange(m_previousFilter, translation);
    }
    /// The end of a drag of \a translation points.
    Q_INVOKABLE void handleDragOnEnded(qreal translation);
    /// Moves the selection \a entries along (later entries when positive), as a drag of as many whole
    /// entries would, for the keyboard. Nothing past either end, nor before the width is known.
    Q_INVOKABLE void step(int entries);
    /// Shows \a filter selected and centred, as an undo does, without telling the delegate.
    void select(const Filter& filter);

signals:
    void selectedFilterChanged();
    void availableFiltersChanged();
    void offsetChanged();
    void isDraggingChanged();

protected:
    SelectFilterViewModel(QList<Filter> availableFilters, qreal filterImageSize, qreal spacing,
                          FiltersDelegate* delegate, QObject* parent);

private:
    /// Whole entries the translation spans, halves away from zero.
    qint64 steps(qreal translation) const;
    void setSelectedFilter(const Filter& filter);
    void setOffset(qreal offset);
    void setDragging(bool dragging);

    Filter m_selectedFilter;
    Filter m_previousFilter;
    QList<Filter> m_availableFilters;
    qreal m_filterImageSize;
    qreal m_offset = 0;
    qreal m_maxOffset = 0;
    qreal m_minOffset = 0;
    qreal m_spacing;
    FiltersDelegate* m_delegate;
    bool m_isFirstTimeAppearing = true;
    bool m_isDragging = false;
};
