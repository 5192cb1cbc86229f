#include "ColorPageViewModel.h"

#include "Editor/Helpers/Finite.h"
#include "Editor/Helpers/FittedSize.h"
#include "Editor/Helpers/Notify.h"

ColorPageViewModel::ColorPageViewModel(QImage image, ReturnAction returnAction, QObject* parent)
    : ToolPageViewModel(std::move(returnAction), parent)
    , m_image(std::move(image))
    , m_filtersManager(new FiltersManager(FiltersManager::Engine::Cpu, this))
{}

void ColorPageViewModel::setupImageSize(QSizeF size)
{
    if (!isFinite(size) || !(size.width() > 0) || !(size.height() > 0))
        return;
    assignAndNotify(this, m_imageFrameSize, fittedSize(m_image.deviceIndependentSize(), size),
                    &ColorPageViewModel::imageFrameSizeChanged);
}

void ColorPageViewModel::setSelectedFilter(std::optional<Filter> filter)
{
    assignAndNotify(this, m_selectedFilter, filter, &ColorPageViewModel::selectedFilterChanged);
}

void ColorPageViewModel::setSelectedIntensity(qreal intensity)
{
    assignAndNotify(this, m_selectedIntensity, intensity, &ColorPageViewModel::selectedIntensityChanged);
}
