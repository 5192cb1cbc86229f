#pragma once

#include "Engine/Filter.h"

/// Told of every entry a filter carousel selects.
class FiltersDelegate
{
public:
    virtual ~FiltersDelegate() = default;
    virtual void applyFilter(const Filter& filter) = 0;
};
