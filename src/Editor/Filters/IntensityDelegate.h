#pragma once

#include <QtGlobal>

/// Told of every intensity an intensity control reports, from 0 to 100.
class IntensityDelegate
{
public:
    virtual ~IntensityDelegate() = default;
    virtual void applyIntensity(qreal value) = 0;
};
