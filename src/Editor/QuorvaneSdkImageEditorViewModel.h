#pragma once

#include "ImageEditorViewModel.h"
#include "ImageSaver/ImageSaver.h"
#include "QuorvaneSdkImageEditorPreset.h"
#include "QuorvaneSdkImageEditorResult.h"

#include <QObject>
#include <QQmlParserStatus>
#include <QtQml/qqmlregistration.h>
#include <memory>

/// One editing session: holds the preset's image and turns the editor's final image into the host's result.
/// From C++ it starts at construction; from QML it starts once its declaration (with `preset`) is complete.
class QuorvaneSdkImageEditorViewModel : public QObject, public QQmlParserStatus
{
    Q_OBJECT
    QML_ELEMENT
    Q_INTERFACES(QQmlParserStatus)
    Q_PROPERTY(QuorvaneSdkImageEditorPreset preset READ preset WRITE setPreset NOTIFY presetChanged)
    Q_PROPERTY(QImage image READ imageOrNull NOTIFY imageChanged)
    Q_PROPERTY(bool hasImage READ hasImage NOTIFY imageChanged)
    Q_PROPERTY(bool started READ started NOTIFY startedChanged)
    /// The editor, for as long as the session lives; null when there is no image.
    Q_PROPERTY(ImageEditorViewModel* editor READ editor NOTIFY startedChanged)
    /// When true (the public screen sets it), the editor's final image is resized, encoded and written off
    /// the GUI thread, while the editor shows it is working; completion follows once the file is written.
    /// False by default: completion is emitted before the editor's call returns.
    Q_PROPERTY(bool savesInBackground READ savesInBackground WRITE setSavesInBackground NOTIFY
                   savesInBackgroundChanged)

public:
    explicit QuorvaneSdkImageEditorViewModel(QObject* parent = nullptr);
    QuorvaneSdkImageEditorViewModel(QuorvaneSdkImageEditorPreset preset,
                                    std::shared_ptr<ImageSaver> imageSaver = nullptr,
                                    QObject* parent = nullptr);

    const std::optional<QImage>& image() const { return m_image; }
    QImage imageOrNull() const { return m_image.value_or(QImage()); }
    bool hasImage() const { return m_image.has_value(); }
    bool started() const { return m_started; }
    ImageEditorViewModel* editor() const { return m_editor; }
    bool savesInBackground() const { return m_savesInBackground; }
    void setSavesInBackground(bool inBackground);

    /// Taken once, before the session starts; later values are ignored.
    QuorvaneSdkImageEditorPreset preset() const { return m_preset; }
    void setPreset(const QuorvaneSdkImageEditorPreset& preset);

    /// The result for the editor's final \a image: resized when the preset asks, then saved. Never fails: a
    /// failed save still returns the image, with no URL; no image gives an empty result.
    virtual QuorvaneSdkImageEditorResult getResult(const std::optional<QImage>& image);

    /// The editor's steps so far with this preset's photo and output, as a recipe (JSON); empty when a step
    /// cannot be written as one.
    QString recipe() const;

    /// getResult() for QML: a null or undefined \a image means none.
    Q_INVOKABLE QuorvaneSdkImageEditorResult resultFor(const QVariant& image);

    /// The error screen's "Accept": the session ends with an empty result, once; later presses (a second
    /// Return while the host takes the screen away) do nothing.
    Q_INVOKABLE void acceptError()
    {
        if (m_errorAccepted)
            return;
        m_errorAccepted = true;
        emit completion(getResult(std::nullopt));
    }

    void classBegin() override;
    void componentComplete() override;

signals:
    void presetChanged();
    void imageChanged();
    void startedChanged();
    void savesInBackgroundChanged();
    /// The user left the editor (or the error screen); the host receives \a result.
    void completion(const QuorvaneSdkImageEditorResult& result);

private:
    void start();
    void deliver(const std::optional<QImage>& image);

    QuorvaneSdkImageEditorPreset m_preset;
    std::shared_ptr<ImageSaver> m_imageSaver;
    std::optional<QImage> m_image;
    ImageEditorViewModel* m_editor = nullptr;
    bool m_started = false;
    bool m_declaredInQml = false;
    bool m_errorAccepted = false;
    bool m_savesInBackground = false;
};
