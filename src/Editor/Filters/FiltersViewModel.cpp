#include "FiltersViewModel.h"

#include "Editor/Helpers/FittedSize.h"

FiltersViewModel::FiltersViewModel(QImage image, ReturnAction returnAction, QObject* parent)
    : ColorPageViewModel(std::move(image), std::move(returnAction), parent)
{
    loadFilters();
    m_selectFilterViewModel = new SelectFilterViewModel(m_availableFilters, this, this);
    m_chooseIntensityViewModel = new ChooseIntensityViewModel(this, this);
    m_shownFilter = m_selectFilterViewModel->selectedFilter();
    m_shownIntensity = m_chooseIntensityViewModel->selectedIntensity();
}

QColor FiltersViewModel::selectedSwatchColor() const
{
    const auto& filter = selectedFilter();
    return filter ? FiltersManager::swatchColor(filter->index).value_or(Qt::transparent) : Qt::transparent;
}

void FiltersViewModel::loadFilters()
{
    const QSizeF thumbnail =
        fittedSize(image().deviceIndependentSize(), {filterImageSize(), filterImageSize()});
    m_availableFilters = filtersManager().loadFilters(image(), thumbnail);
}

void FiltersViewModel::applyFilter(const Filter& filter)
{
    const std::optional<Filter> previous = selectedFilter();
    const Filter shown = m_shownFilter;
    track([this, previous, shown] {
        setSelectedFilter(previous);
        m_shownFilter = shown;
        m_selectFilterViewModel->select(shown);
    });
    m_shownFilter = filter;
    setSelectedFilter(filter);
}

void FiltersViewModel::applyIntensity(qreal value)
{
    const qreal previous = selectedIntensity();
    const qreal shown = m_shownIntensity;
    track([this, previous, shown] {
        setSelectedIntensity(previous);
        m_shownIntensity = shown;
        m_chooseIntensityViewModel->restore(shown);
    });
    m_shownIntensity = value;
    setSelectedIntensity(value);
}

std::optional<QImage> FiltersViewModel::applyFilters() const
{
    const auto& filter = selectedFilter();
    if (!filter)
        return std::nullopt;
    const std::optional<QColor> color = FiltersManager::swatchColor(filter->index);
    if (!color)
        return filter->image;
    QImage field = FiltersManager::imageWithColorAndSize(*color, image().deviceIndependentSize());
    return field.isNull() ? std::nullopt : std::optional<QImage>(std::move(field));
}
