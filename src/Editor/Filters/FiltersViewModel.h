#pragma once

#include "ChooseIntensityViewModel.h"
#include "ColorPageViewModel.h"
#include "SelectFilterViewModel.h"

#include <QtQml/qqmlregistration.h>

/// The filters page: the catalogue in a snapping carousel, the intensity ruler, and undo of every choice.
/// ACCEPT hands back the chosen entry's image: the picture itself for "Original", a field of the swatch's
/// colour of the picture's size for the others.
class FiltersViewModel : public ColorPageViewModel
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The editor creates the filters page's model.")
    Q_PROPERTY(SelectFilterViewModel* selectFilterViewModel READ selectFilterViewModel CONSTANT)
    Q_PROPERTY(ChooseIntensityViewModel* chooseIntensityViewModel READ chooseIntensityViewModel CONSTANT)
    /// The chosen swatch's colour, to lay over the picture; transparent while the original or nothing is
    /// chosen.
    Q_PROPERTY(QColor selectedSwatchColor READ selectedSwatchColor NOTIFY selectedFilterChanged)

public:
    explicit FiltersViewModel(QImage image, ReturnAction returnAction = {}, QObject* parent = nullptr);

    SelectFilterViewModel* selectFilterViewModel() const { return m_selectFilterViewModel; }
    ChooseIntensityViewModel* chooseIntensityViewModel() const { return m_chooseIntensityViewModel; }
    QColor selectedSwatchColor() const;

    /// The catalogue, its swatches as thumbnails of filterImageSize points in the picture's shape: nine
    /// full-size fields would cost nine pictures' memory.
    void loadFilters();
    /// Selects \a filter, undoably.
    void applyFilter(const Filter& filter) override;
    /// Keeps \a value as the intensity, undoably; no entry uses it.
    void applyIntensity(qreal value) override;
    /// The chosen entry's image; none while nothing is chosen, or when the field cannot be made.
    std::optional<QImage> applyFilters() const;

protected:
    std::optional<QImage> result() override { return applyFilters(); }

private:
    SelectFilterViewModel* m_selectFilterViewModel = nullptr;
    ChooseIntensityViewModel* m_chooseIntensityViewModel = nullptr;
    // What the carousel and the ruler show, which an undo puts back too. They differ from the selection
    // before the first choice: the carousel shows the original with none selected, and the ruler 100 while
    // the page's intensity starts at 1.
    Filter m_shownFilter;
    qreal m_shownIntensity = 0;
};
