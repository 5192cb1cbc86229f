#pragma once

#include "Canvas/CanvasViewModel.h"
#include "Cropper/CropperViewModel.h"

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
    /// The page's raw value: "base", "crop", "canvas", "filters" or "adjust".
    Q_PROPERTY(QString page READ pageName NOTIFY pageChanged)
    /// The crop page's model while the crop page is shown, else null.
    Q_PROPERTY(CropperViewModel* cropper READ cropper NOTIFY pageChanged)
    /// The canvas page's model while the canvas page is shown, else null.
    Q_PROPERTY(CanvasViewModel* canvas READ canvas NOTIFY pageChanged)
    /// The editor has handed back its result; from then on it takes no more edits.
    Q_PROPERTY(bool hasReturned READ hasReturned NOTIFY hasReturnedChanged)

public:
    enum class Page { base, crop, canvas, filters, adjust };
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
    CropperViewModel* cropper() const { return m_cropper; }
    CanvasViewModel* canvas() const { return m_canvas; }
    bool hasReturned() const { return m_hasReturned; }

    void navigate(Page page);
    /// navigate() for screens, by raw value; other texts are ignored.
    Q_INVOKABLE void navigate(const QString& rawValue);

    /// The one entry through which a tool page hands back its result: back to the base page, and an image,
    /// if any, becomes the current version.
    void addNewImageVerion(std::optional<QImage> image);
    /// Leaves the tool page shown without a change.
    Q_INVOKABLE void leaveToolPage() { addNewImageVerion(std::nullopt); }
    /// Undo: the previous version becomes current again. Nothing without one, or once the editor has
    /// returned.
    Q_INVOKABLE void restoreLastImageVersion();

    /// The close button: leaves the editor without an image. The editor is left once; later calls do nothing.
    Q_INVOKABLE void close() { leave(std::nullopt); }
    /// "CONTINUE": leaves the editor with the current image.
    Q_INVOKABLE void finish() { leave(m_image); }

signals:
    void imageChanged();
    void previousImageVersionsChanged();
    void pageChanged();
    void hasReturnedChanged();
    /// The editor is left, with the image to deliver or without one.
    void returnAction(std::optional<QImage> image);

private:
    std::optional<QImage> getLastImageVersion();
    void leave(std::optional<QImage> image);

    QImage m_image;
    QList<QImage> m_previousImageVersions;
    Page m_page = Page::base;
    QPointer<CropperViewModel> m_cropper;
    QPointer<CanvasViewModel> m_canvas;
    bool m_hasReturned = false;
};
