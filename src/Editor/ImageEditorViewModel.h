#pragma once

#include "Adjustment/AdjustImageViewModel.h"
#include "Canvas/CanvasViewModel.h"
#include "Cropper/CropperViewModel.h"
#include "Filters/FiltersViewModel.h"

#include <QImage>
#include <QList>
#include <QObject>
#include <QPointer>
#include <QVariant>
#include <QtQml/qqmlregistration.h>
#include <optional>

/// The editor: the current image, the versions before it, and which page is shown. Every tool page starts
/// from the current image and hands back one optional image through addNewImageVerion().
class ImageEditorViewModel : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The editing session creates the editor.")
    Q_PROPERTY(QImage image READ image NOTIFY imageChanged)
    Q_PROPERTY(
        int previousImageVersionCount READ previousImageVersionCount NOTIFY previousImageVersionsChanged)
    Q_PROPERTY(
        bool hasPreviousImageVersions READ hasPreviousImageVersions NOTIFY previousImageVersionsChanged)
    Q_PROPERTY(Page page READ page NOTIFY pageChanged)
    /// The page's raw value: "base", "crop", "canvas", "filters" or "adjust".
    Q_PROPERTY(QString pageName READ pageName NOTIFY pageChanged)
    /// Each tool page's model while that page is shown, else null.
    Q_PROPERTY(CropperViewModel* cropper READ cropper NOTIFY pageChanged)
    Q_PROPERTY(CanvasViewModel* canvas READ canvas NOTIFY pageChanged)
    Q_PROPERTY(FiltersViewModel* filters READ filters NOTIFY pageChanged)
    Q_PROPERTY(AdjustImageViewModel* adjustment READ adjustment NOTIFY pageChanged)
    /// The editor has handed back its result; from then on it takes no more edits.
    Q_PROPERTY(bool hasReturned READ hasReturned NOTIFY hasReturnedChanged)
    /// The result handed back is being resized, encoded and written.
    Q_PROPERTY(bool isWorking READ isWorking NOTIFY isWorkingChanged)
    /// The close button was pressed while there are edits: the screen asks before throwing them away.
    Q_PROPERTY(bool isConfirmingClose READ isConfirmingClose NOTIFY isConfirmingCloseChanged)

public:
    enum class Page {
        base,
        crop,
        canvas,
        filters,
        adjust,
        // QML reads only enum keys that start with a capital letter: the same pages, for screens.
        Base = base,
        Crop = crop,
        Canvas = canvas,
        Filters = filters,
        Adjust = adjust
    };
    Q_ENUM(Page)

    static QString rawValue(Page page);
    /// The page named \a rawValue; none for any other text.
    static std::optional<Page> page(const QString& rawValue);

    explicit ImageEditorViewModel(QImage image, QObject* parent = nullptr);

    QImage image() const { return m_image; }
    const QList<QImage>& previousImageVersions() const { return m_previousImageVersions; }
    int previousImageVersionCount() const { return int(m_previousImageVersions.size()); }
    bool hasPreviousImageVersions() const { return !m_previousImageVersions.isEmpty(); }
    Page page() const { return m_page; }
    QString pageName() const { return rawValue(m_page); }
    ToolPageViewModel* toolPage() const { return m_toolPage; }
    CropperViewModel* cropper() const { return qobject_cast<CropperViewModel*>(m_toolPage); }
    CanvasViewModel* canvas() const { return qobject_cast<CanvasViewModel*>(m_toolPage); }
    FiltersViewModel* filters() const { return qobject_cast<FiltersViewModel*>(m_toolPage); }
    AdjustImageViewModel* adjustment() const { return qobject_cast<AdjustImageViewModel*>(m_toolPage); }
    bool hasReturned() const { return m_hasReturned; }
    bool isWorking() const { return m_isWorking; }
    void setWorking(bool working);
    bool isConfirmingClose() const { return m_isConfirmingClose; }

    Q_INVOKABLE void navigate(Page page);
    /// navigate() by raw value; other texts are ignored.
    void navigate(const QString& rawValue);

    /// The one entry through which a tool page hands back its result: back to the base page, and an image,
    /// if any, becomes the current version.
    void addNewImageVerion(std::optional<QImage> image);
    /// addNewImageVerion() with what the page did to make \a image, for the session's recipe.
    void addNewImageVerion(std::optional<QImage> image, std::optional<EditRecipe::Step> step);
    /// Applies \a steps in turn as versions the user can undo one by one, as if made on the pages; stops
    /// at the first that cannot be applied and says why (empty when all were).
    QString applySteps(const QList<EditRecipe::Step>& steps);
    /// What made each version from the first, oldest first; none when a version came from a page that
    /// cannot say (the filters' placeholders) or from a host's own image.
    std::optional<QList<EditRecipe::Step>> steps() const;
    /// Undo: the previous version becomes current again. Nothing without one, or once the editor has
    /// returned.
    Q_INVOKABLE void restoreLastImageVersion();

    /// The close button: leaves the editor without an image. The editor is left once; later calls do nothing.
    Q_INVOKABLE void close() { leave(std::nullopt); }
    /// The close button as screens offer it: close() at once without edits; with edits, it asks first.
    Q_INVOKABLE void requestClose();
    /// The answers to that question.
    Q_INVOKABLE void discardEdits();
    Q_INVOKABLE void keepEditing();
    /// "CONTINUE": leaves the editor with the current image.
    Q_INVOKABLE void finish() { leave(m_image); }

signals:
    void imageChanged();
    void previousImageVersionsChanged();
    void pageChanged();
    void hasReturnedChanged();
    void isWorkingChanged();
    void isConfirmingCloseChanged();
    /// The editor is left, with the image to deliver or without one.
    void returnAction(std::optional<QImage> image);

private:
    std::optional<QImage> getLastImageVersion();
    void leave(std::optional<QImage> image);

    QImage m_image;
    QList<QImage> m_previousImageVersions;
    /// Beside each previous version: the step that made the version after it.
    QList<std::optional<EditRecipe::Step>> m_steps;
    Page m_page = Page::base;
    QPointer<ToolPageViewModel> m_toolPage;
    bool m_hasReturned = false;
    bool m_isWorking = false;
    bool m_isConfirmingClose = false;
};
