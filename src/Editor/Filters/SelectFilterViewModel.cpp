#include "SelectFilterViewModel.h"

#include "Editor/Helpers/Notify.h"
#include "Editor/Helpers/Truncate.h"

#include <QVariantMap>
#include <QtNumeric>
#include <algorithm>
#include <limits>

namespace {

const Filter& firstOf(const QList<Filter>& filters)
{
    if (filters.isEmpty())
        qFatal("SelectFilterViewModel: a carousel needs at least one entry");
    return filters.first();
}

} // namespace

SelectFilterViewModel::SelectFilterViewModel(QList<Filter> availableFilters, FiltersDelegate* delegate,
                                             QObject* parent)
    : SelectFilterViewModel(std::move(availableFilters), 64, 8, delegate, parent)
{}

SelectFilterViewModel::SelectFilterViewModel(QList<Filter> availableFilters, qreal filterImageSize,
                                             qreal spacing, FiltersDelegate* delegate, QObject* parent)
    : QObject(parent)
    , m_selectedFilter(firstOf(availableFilters))
    , m_previousFilter(m_selectedFilter)
    , m_availableFilters(std::move(availableFilters))
    , m_filterImageSize(filterImageSize)
    , m_spacing(spacing)
    , m_delegate(delegate)
{}

QVariantList SelectFilterViewModel::entries() const
{
    QVariantList entries;
    for (const Filter& filter : m_availableFilters)
        entries.append(QVariantMap{{QStringLiteral("image"), filter.image},
                                   {QStringLiteral("index"), filter.index},
                                   {QStringLiteral("name"), filter.name}});
    return entries;
}

void SelectFilterViewModel::setupElementsSize(qreal width)
{
    if (!std::isfinite(width))
        return;
    m_maxOffset = (width - m_filterImageSize) / 2;
    m_minOffset = m_maxOffset - qreal(m_availableFilters.size() - 1) * (m_filterImageSize + m_spacing);
    // Deliberately once: a later width moves the bounds but the strip stays where the user left it.
    if (m_isFirstTimeAppearing) {
        m_isFirstTimeAppearing = false;
        setOffset(m_maxOffset);
    }
}

qint64 SelectFilterViewModel::steps(qreal translation) const
{
    const qreal step = m_filterImageSize + m_spacing;
    const qreal d = translation <= 0 ? translation - step / 2 : translation + step / 2;
    // Truncation toward zero is the rounding: with the half step added it rounds halves away from zero.
    return truncatedToInt64(d / step, "SelectFilterViewModel: drag in entries");
}

void SelectFilterViewModel::handleDragOnChange(const Filter& previous, qreal translation)
{
    setDragging(true);
    // The bounds are tested first: beyond them the first or last entry, whatever the drag's length.
    if (m_offset + translation > m_maxOffset) {
        setSelectedFilter(m_availableFilters.first());
    } else if (m_offset + translation < m_minOffset) {
        setSelectedFilter(m_availableFilters.last());
    } else {
        const qint64 n = steps(translation);
        qint64 index = 0;
        if (qSubOverflow(n, previous.index, &index) || index == std::numeric_limits<qint64>::min())
            index = std::numeric_limits<qint64>::max();
        // Kept within the list: after a new width the strip stays where it was, so a long drag can reach
        // past the last entry without passing the new bounds.
        index = std::min<qint64>(index < 0 ? -index : index, m_availableFilters.size() - 1);
        setSelectedFilter(m_availableFilters.at(index));
    }
    if (m_delegate)
        m_delegate->applyFilter(m_selectedFilter);
}

void SelectFilterViewModel::handleDragOnEnded(qreal translation)
{
    m_previousFilter = m_selectedFilter;
    setDragging(false);
    if (m_offset + translation > m_maxOffset)
        setOffset(m_maxOffset);
    else if (m_offset + translation < m_minOffset)
        setOffset(m_minOffset);
    else
        setOffset(m_offset + (m_filterImageSize + m_spacing) * qreal(steps(translation)));
}

void SelectFilterViewModel::step(int entries)
{
    if (m_isFirstTimeAppearing)
        return;
    const qint64 last = m_availableFilters.size() - 1;
    const qint64 target = std::clamp<qint64>(m_selectedFilter.index + entries, 0, last);
    // A key at either end changes nothing: it must not leave an undo step that undoes nothing.
    if (target == m_selectedFilter.index)
        return;
    const qreal translation = -qreal(target - m_selectedFilter.index) * (m_filterImageSize + m_spacing);
    handleDragOnChange(translation);
    handleDragOnEnded(translation);
}

void SelectFilterViewModel::select(const Filter& filter)
{
    m_previousFilter = filter;
    setSelectedFilter(filter);
    if (!m_isFirstTimeAppearing)
        setOffset(m_maxOffset - qreal(filter.index) * (m_filterImageSize + m_spacing));
}

void SelectFilterViewModel::setSelectedFilter(const Filter& filter)
{
    assignAndNotify(this, m_selectedFilter, filter, &SelectFilterViewModel::selectedFilterChanged);
}

void SelectFilterViewModel::setOffset(qreal offset)
{
    assignAndNotify(this, m_offset, offset, &SelectFilterViewModel::offsetChanged);
}

void SelectFilterViewModel::setDragging(bool dragging)
{
    assignAndNotify(this, m_isDragging, dragging, &SelectFilterViewModel::isDraggingChanged);
}
