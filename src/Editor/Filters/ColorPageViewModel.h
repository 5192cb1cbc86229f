#pragma once

#include "Editor/ToolPageViewModel.h"
#include "Engine/Filter.h"
#include "Engine/FiltersManager.h"
#include "FiltersDelegate.h"
#include "IntensityDelegate.h"

#include <QImage>
#include <QList>
#include <QSizeF>
#include <optional>

/// What the filters and adjustments pages share: the picture fitted into the page, a catalogue of entries
/// with the one selected, and an intensity. The page is the delegate of its carousel and its ruler.
class ColorPageViewModel : public ToolPageViewModel, public FiltersDelegate, public IntensityDelegate
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The editor creates colour pages.")
    Q_PROPERTY(QImage image READ image CONSTANT)
    Q_PROPERTY(QSizeF imageFrameSize READ imageFrameSize NOTIFY imageFrameSizeChanged)

public:
    QImage image() const { return m_image; }
    QSizeF imageFrameSize() const { return m_imageFrameSize; }
    const QList<Filter>& availableFilters() const { return m_availableFilters; }
    const std::optional<Filter>& selectedFilter() const { return m_selectedFilter; }
    qreal selectedIntensity() const { return m_selectedIntensity; }
    qreal filterImageSize() const { return m_filterImageSize; }
    FiltersManager& filtersManager() const { return *m_filtersManager; }

    /// Fits the picture into \a size, the space the page offers it; a size without area is ignored.
    Q_INVOKABLE void setupImageSize(QSizeF size);

signals:
    void imageFrameSizeChanged();
    void selectedFilterChanged();
    void selectedIntensityChanged();

protected:
    ColorPageViewModel(QImage image, ReturnAction returnAction, QObject* parent);

    void setSelectedFilter(std::optional<Filter> filter);
    void setSelectedIntensity(qreal intensity);

    QList<Filter> m_availableFilters;

private:
    QImage m_image;
    QSizeF m_imageFrameSize;
    std::optional<Filter> m_selectedFilter;
    qreal m_selectedIntensity = 1.0;
    qreal m_filterImageSize = 64.0;
    // Entries here are colour placeholders and never reach an engine: the CPU one costs nothing to make,
    // where a GPU one would open a device beside the host's.
    FiltersManager* m_filtersManager;
};
