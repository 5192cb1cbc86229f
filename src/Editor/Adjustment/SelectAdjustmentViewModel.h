#pragma once

#include "Editor/Filters/SelectFilterViewModel.h"

/// The adjustments' carousel: the filter carousel's rules with the entry size and spacing given.
class SelectAdjustmentViewModel : public SelectFilterViewModel
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The adjustments page creates its carousel.")

public:
    SelectAdjustmentViewModel(QList<Filter> availableFilters, qreal filterImageSize, qreal spacing,
                              FiltersDelegate* delegate, QObject* parent = nullptr)
        : SelectFilterViewModel(std::move(availableFilters), filterImageSize, spacing, delegate, parent)
    {}
};
