#pragma once

#include <QImage>
#include <QObject>
#include <QString>

namespace FilterTypes {
Q_NAMESPACE
/// Handed to FiltersManager::applyFilter, which applies the same matrix whatever the type.
enum class FilterType { sepia, luminosity };
Q_ENUM_NS(FilterType)
} // namespace FilterTypes
using FilterTypes::FilterType;

/// One entry of the filter picker: the image it stands for (also its thumbnail), its place in the catalogue
/// (0 for the original) and its name, in English: screens show it translated (context "Filter").
struct Filter
{
    QImage image;
    qint64 index = 0;
    QString name;

    /// Same image (the same pixels object, not equal pixels), then index, then name.
    friend bool operator==(const Filter& a, const Filter& b)
    {
        return a.image.cacheKey() == b.image.cacheKey() && a.index == b.index && a.name == b.name;
    }
};
