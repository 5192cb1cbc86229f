#pragma once

#include "Editor/ToolPageViewModel.h"
#include "LineImage/LineImage.h"
#include "LineImage/LineImageViewModel.h"
#include "TextImage/TextImageViewModel.h"
#include "TransformDelegate.h"

#include <QColor>
#include <QImage>
#include <QList>
#include <QObject>
#include <QPointF>
#include <QSizeF>
#include <QUuid>
#include <QtQml/qqmlregistration.h>
#include <functional>
#include <optional>

/// One stroke under the finger: points in canvas space, in the order touched.
struct Line
{
    QUuid id = QUuid::createUuid();
    QList<QPointF> points;
};

/// The canvas page's state: overlay items over the image, the stroke being drawn, the drawing settings,
/// the selected item, the active tool, and the undo history of item lists. A number that is not finite (a
/// size, point, width, turn or scale) is ignored: no change, no signal, no undo step.
class CanvasViewModel : public ToolPageViewModel, public TransformDelegate
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The editor creates the canvas page's model.")
    Q_PROPERTY(QImage image READ image CONSTANT)
    Q_PROPERTY(QSizeF imageFrameSize READ imageFrameSize NOTIFY imageFrameSizeChanged)
    Q_PROPERTY(Option selectedOption READ selectedOption NOTIFY selectedOptionChanged)
    Q_PROPERTY(bool isChoosingLineWidth READ isChoosingLineWidth WRITE setChoosingLineWidth NOTIFY
                   isChoosingLineWidthChanged)
    Q_PROPERTY(bool isEnteringText READ isEnteringText NOTIFY isEnteringTextChanged)
    Q_PROPERTY(QColor selectedColor READ selectedColor WRITE setColor NOTIFY selectedColorChanged)
    Q_PROPERTY(
        qreal selectedlineWidth READ selectedlineWidth WRITE setLineWidth NOTIFY selectedlineWidthChanged)
    Q_PROPERTY(QList<QPointF> currentLinePoints READ currentLinePoints NOTIFY currentLineChanged)
    Q_PROPERTY(QList<QObject*> lineImageViewModels READ lineImageViewModels NOTIFY lineImagesChanged)
    Q_PROPERTY(int previousStateCount READ previousStateCount NOTIFY previousStatesChanged)
    Q_PROPERTY(bool hasPreviousStates READ hasPreviousStates NOTIFY previousStatesChanged)
    Q_PROPERTY(bool hasSelection READ hasSelection NOTIFY selectedLineImageChanged)
    /// An item is selected and still on the canvas: an undo or a delete can take the selected item away while
    /// the selection still names it, and then nothing shown is selected.
    Q_PROPERTY(bool hasShownSelection READ hasShownSelection NOTIFY shownSelectionChanged)
    Q_PROPERTY(bool isCropperSetup READ isCropperSetup NOTIFY isCropperSetupChanged)
    /// The colour swatches, in the order the colour picker shows them.
    Q_PROPERTY(QList<QColor> colorItems READ colorItems CONSTANT)

public:
    enum class Option {
        drawing,
        text,
        transform,
        // For QML, which reads only capitalised enum keys.
        Drawing = drawing,
        Text = text,
        Transform = transform
    };
    Q_ENUM(Option)

    /// One undo step: the frame size and the item list as they stood before a change.
    struct CanvasState
    {
        QSizeF currentImageSize;
        QList<LineImagePtr> images;
    };

    CanvasViewModel(QImage image, std::function<void(std::optional<QImage>)> returnAction = {},
                    QObject* parent = nullptr);
    ~CanvasViewModel() override;

    QImage image() const { return m_image; }
    QSizeF imageFrameSize() const { return m_imageFrameSize; }
    Option selectedOption() const { return m_selectedOption; }
    bool isChoosingLineWidth() const { return m_isChoosingLineWidth; }
    void setChoosingLineWidth(bool choosing);
    bool isEnteringText() const { return m_isEnteringText; }
    QColor selectedColor() const { return m_selectedColor; }
    qreal selectedlineWidth() const { return m_selectedlineWidth; }
    const Line& currentLine() const { return m_currentLine; }
    QList<QPointF> currentLinePoints() const { return m_currentLine.points; }
    const QList<LineImagePtr>& lineImages() const { return m_lineImages; }
    QList<QObject*> lineImageViewModels() const { return m_lineImageViewModels; }
    const QList<CanvasState>& previousStates() const { return m_previousStates; }
    int previousStateCount() const { return int(m_previousStates.size()); }
    bool hasPreviousStates() const { return !m_previousStates.isEmpty(); }
    const LineImagePtr& selectedLineImage() const { return m_selectedLineImage; }
    bool hasSelection() const { return m_selectedLineImage != nullptr; }
    bool hasShownSelection() const
    {
        return m_selectedLineImage && m_lineImages.contains(m_selectedLineImage);
    }
    bool isCropperSetup() const { return m_isCropperSetup; }
    int setupScreenSizeCounter() const { return m_setupScreenSizeCounter; }

    /// Fits the image into \a size once; later calls change nothing.
    Q_INVOKABLE void setupScreenSize(QSizeF size);
    /// Adds \a point to the stroke if it lies in the canvas frame of \a frameSize.
    Q_INVOKABLE void handleNewPoint(QPointF point, QSizeF frameSize);
    /// A finger going down: a new stroke starts at \a point, without a point an earlier tap left behind.
    Q_INVOKABLE void beginStroke(QPointF point, QSizeF frameSize);
    /// Ends the stroke at \a point and turns it into an item when it has two points or more. A stroke left
    /// with no box inside \a frameSize (the frame shrank past it) is dropped without an item.
    Q_INVOKABLE void addFinalPoint(QPointF point, QSizeF frameSize);
    QPointF getTopMostLeftPoint(const QList<QPointF>& points) const;
    QPointF getBottomMostRightPoint(const QList<QPointF>& points, QSizeF availableSize) const;
    Q_INVOKABLE void deleteLine(const QString& id);
    /// The canvas keeps its own history of item lists instead of tracked actions.
    Q_INVOKABLE void undoLastAction() override;
    Q_INVOKABLE void enableDraw();
    Q_INVOKABLE void enableText();
    Q_INVOKABLE void enableMove();
    void handleTap(const LineImagePtr& item);
    /// handleTap() on the uppermost item drawn at \a point (canvas points), turned and scaled as it is shown;
    /// nothing where no item is.
    Q_INVOKABLE void handleTapOnScreen(QPointF point);
    /// Sets the stroke width and closes the width picker.
    void setLineWidth(qreal width);
    void setColor(const QColor& color);
    /// Ends text entry and adds \a image centred as an item; none adds nothing.
    void addText(std::optional<QImage> image);
    /// addText() with what the picture shows, so that it can be drawn again.
    void addText(std::optional<QImage> image, Overlay::Shape shape);
    static QList<QColor> colorItems();
    /// The place of \a color among colorItems(), -1 when it is none of them.
    Q_INVOKABLE static int colorIndex(const QColor& color) { return int(colorItems().indexOf(color)); }
    /// The text screen's confirm button: adds the rendered text, or nothing for an empty text.
    Q_INVOKABLE void confirmText(TextImageViewModel* text);
    /// Leaves text entry without adding anything.
    Q_INVOKABLE void cancelText() { addText(std::nullopt); }
    Q_INVOKABLE void setLineWidthFromPicker(qreal width) { setLineWidth(width); }
    Q_INVOKABLE void setColorFromPicker(const QColor& color) { setColor(color); }

    /// Draws every item onto the image at the image's own resolution and empties the list; none without
    /// items.
    std::optional<QImage> mergeDrawings();
    /// The items as a recipe's step, normalised to the frame; none before the page is laid out, without
    /// items, or with an item whose shape is unknown.
    std::optional<EditRecipe::Overlays> overlaysStep() const;

    void close() override;
    void deleteItem() override;
    void rotate(Angle angle, bool overridePrevious = false) override;
    void increaseScale() override;
    void decreaseScale() override;
    void scale(qreal factor) override;
    void align(Alignment alignment) override;

    /// The toolbar's buttons, for the screen.
    Q_INVOKABLE void closeSelection() { close(); }
    Q_INVOKABLE void deleteSelection() { deleteItem(); }
    Q_INVOKABLE void rotateBy(qreal degrees) { rotate(Angle::degrees(degrees), false); }
    Q_INVOKABLE void rotateTo(qreal degrees) { rotate(Angle::degrees(degrees), true); }
    Q_INVOKABLE void scaleUp() { increaseScale(); }
    Q_INVOKABLE void scaleDown() { decreaseScale(); }
    Q_INVOKABLE void scaleTo(qreal factor) { scale(factor); }
    Q_INVOKABLE void alignTo(CanvasAlignment::Alignment alignment) { align(alignment); }

signals:
    void imageFrameSizeChanged();
    void selectedOptionChanged();
    void isChoosingLineWidthChanged();
    void isEnteringTextChanged();
    void selectedColorChanged();
    void selectedlineWidthChanged();
    void currentLineChanged();
    void lineImagesChanged();
    void previousStatesChanged();
    void selectedLineImageChanged();
    void isCropperSetupChanged();
    void shownSelectionChanged();

protected:
    /// "ACCEPT" leaves with the flattened image (none without items), and only after a change.
    bool canAccept() const override { return hasPreviousStates(); }
    std::optional<QImage> result() override { return mergeDrawings(); }
    ResultJob resultJob() override;
    std::optional<EditRecipe::Step> recipeStep() const override;
    void resultJobFinished() override { setLineImages({}); }

private:
    ResultJob flattening() const;
    void recordState();
    void setLineImages(QList<LineImagePtr> images);
    void setSelectedOption(Option option);
    void setEnteringText(bool entering);
    void setTransformEnabledOnAll(bool enabled);
    void setSelectedLineImage(LineImagePtr item);

    const QImage m_image;
    QSizeF m_imageFrameSize;
    Option m_selectedOption = Option::drawing;
    bool m_isChoosingLineWidth = false;
    bool m_isEnteringText = false;
    QColor m_selectedColor = Qt::white;
    qreal m_selectedlineWidth = 4.0;
    QList<LineImagePtr> m_lineImages;
    QList<QObject*> m_lineImageViewModels;
    Line m_currentLine;
    QList<CanvasState> m_previousStates;
    LineImagePtr m_selectedLineImage;
    bool m_isCropperSetup = false;
    int m_setupScreenSizeCounter = 1;
    bool m_screenWasAlreadyConfigured = false;
};
