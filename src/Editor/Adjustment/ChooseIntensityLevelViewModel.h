#pragma once

#include "Editor/Filters/ChooseIntensityViewModel.h"

/// The adjustments' dial: the intensity ruler's rules with the tick geometry given, starting in the middle
/// of its travel at intensity 50.
class ChooseIntensityLevelViewModel : public ChooseIntensityViewModel
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The adjustments page creates its dial.")

public:
    ChooseIntensityLevelViewModel(QSizeF segmentSize, int segmentNumber, qreal segmentSpacing,
                                  IntensityDelegate* delegate, QObject* parent = nullptr)
        : ChooseIntensityViewModel(segmentSize, segmentNumber, segmentSpacing, 50, delegate, parent)
    {}

protected:
    qreal firstOffset() const override { return minOffset() + totalDraggingSize() / 2; }
};
