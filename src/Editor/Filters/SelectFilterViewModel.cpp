#include "SelectFilterViewModel.h"

#include "Editor/Helpers/Notify.h"
#include "Editor/Helpers/Truncate.h"

#include <QVariantMap>
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
    // The bounds are tested first, so within them the entry reached always exists while the offset is one
    // that setupElementsSize() and the ends of drags made.
    if (m_offset + translation > m_maxOffset) {
        setSelectedFilter(m_availableFilters.first());
    } else if (m_offset + translation < m_minOffset) {
        setSelectedFilter(m_availableFilters.last());
    } else {
        const qint64 n = steps(translation);
        qint64 index = 0;
        if (__builtin_sub_overflow(n, previous.index, &index) || index == std::numeric_limits<qint64>::min())
            qFatal("SelectFilterViewModel: entry %lld - %lld overflows", qlonglong(n),
                   qlonglong(previous.index));
        index = index < 0 ? -index : index;
        if (index >= m_availableFilters.size())
            qFatal("SelectFilterViewModel: entry %lld is out of range: there are %lld", qlonglong(index),
                   qlonglong(m_availableFilters.size()));
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
