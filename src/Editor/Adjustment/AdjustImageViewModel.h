#pragma once

#include "ChooseIntensityLevelViewModel.h"
#include "Editor/Filters/ColorPageViewModel.h"
#include "SelectAdjustmentViewModel.h"

#include <QtQml/qqmlregistration.h>

/// The adjustments page, a shell by design: its carousel of ten symbols and its dial can be moved, but a
/// choice selects nothing and the intensity is only printed, so ACCEPT hands back no image.
class AdjustImageViewModel : public ColorPageViewModel
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The editor creates the adjustments page's model.")
    Q_PROPERTY(SelectAdjustmentViewModel* selectAdjustmentViewModel READ selectAdjustmentViewModel CONSTANT)
    Q_PROPERTY(ChooseIntensityLevelViewModel* chooseIntensityViewModel READ chooseIntensityViewModel CONSTANT)

public:
    explicit AdjustImageViewModel(QImage image, ReturnAction returnAction = {}, QObject* parent = nullptr);

    SelectAdjustmentViewModel* selectAdjustmentViewModel() const { return m_selectAdjustmentViewModel; }
    ChooseIntensityLevelViewModel* chooseIntensityViewModel() const { return m_chooseIntensityViewModel; }

    /// "None", "Adjust #1" … "Adjust #9", each with its symbol.
    void loadFilters();
    /// Does nothing: the selection stays none.
    void applyFilter(const Filter& filter) override;
    /// Prints "applyIntensity(<value>)" on standard output, and nothing else.
    void applyIntensity(qreal value) override;
    /// The selected entry's image; with nothing ever selected, none.
    std::optional<QImage> applyAdjustment() const;

    /// The symbol \a name drawn white on transparent, \a points wide and high at the screen's scale. A name
    /// the component does not ship stops the program.
    static QImage symbolImage(const QString& name, qreal points);

protected:
    std::optional<QImage> result() override { return applyAdjustment(); }

private:
    SelectAdjustmentViewModel* m_selectAdjustmentViewModel = nullptr;
    ChooseIntensityLevelViewModel* m_chooseIntensityViewModel = nullptr;
};
