#include "EditorScreen.h"

#include "Emulation.h"

#include "Editor/Helpers/ModuleResources.h"
#include "Editor/QuorvaneSdkImageEditorViewModel.h"

#include <QQmlEngine>
#include <QQuickItem>
#include <QRegularExpression>
#include <QTest>
#include <QtMath>
#include <QtQuickTest/quicktest.h>
#include <cmath>

EditorScreen::EditorScreen(const QuorvaneSdkImageEditorPreset& preset, QSize size)
{
    // One touch screen for the whole test run: devices are registered for good.
    static QPointingDevice* touch = QTest::createTouchDevice();
    m_touch = touch;
    // Any warning from the editor's own QML (a binding reading a closed page's model, say) is a fault.
    QTest::failOnWarning(
        QRegularExpression(QStringLiteral("^qrc:/qt-project.org/imports/Quorvane/SdkImage/")));
    m_view.setInitialProperties({{QStringLiteral("preset"), QVariant::fromValue(preset)}});
    m_view.setResizeMode(QQuickView::SizeRootObjectToView);
    m_view.resize(size);
    m_view.setSource(ModuleResources::url(QStringLiteral("Editor/QuorvaneSdkImageEditorView.qml")));
    m_view.show();
    QObject* root = m_view.rootObject();
    if (!QTest::qWaitForWindowExposed(&m_view, patience(5000)) || !root)
        qFatal("the editor screen did not load: %s", qPrintable(m_view.errors().value(0).toString()));
    // Keys go to the active window; an X server without a window manager activates none by itself.
    m_view.requestActivate();
    if (!QTest::qWaitForWindowActive(&m_view, patience(5000)))
        qFatal("the editor screen did not become the active window");
    const QMetaObject* meta = root->metaObject();
    m_completions = std::make_unique<QSignalSpy>(
        root, meta->method(meta->indexOfSignal(
                  QMetaObject::normalizedSignature("completion(QuorvaneSdkImageEditorResult)").constData())));
}

ImageEditorViewModel* EditorScreen::editor() const
{
    const auto* session =
        m_view.rootObject()->property("viewModel").value<QuorvaneSdkImageEditorViewModel*>();
    return session ? session->editor() : nullptr;
}

namespace {

// Repeated and delegate items belong to their visual parent only: they are found by walking the item tree.
QQuickItem* findInItemTree(QQuickItem* item, const QString& objectName)
{
    for (QQuickItem* child : item->childItems()) {
        if (child->objectName() == objectName)
            return child;
        if (QQuickItem* found = findInItemTree(child, objectName))
            return found;
    }
    return nullptr;
}

} // namespace

QQuickItem* EditorScreen::find(const char* objectName) const
{
    const QString name = QString::fromUtf8(objectName);
    if (auto* found = m_view.rootObject()->findChild<QQuickItem*>(name))
        return found;
    return findInItemTree(m_view.contentItem(), name);
}

QString EditorScreen::text(const char* objectName) const
{
    const QQuickItem* item = find(objectName);
    return item ? item->property("text").toString() : QString();
}

bool EditorScreen::isShown(const char* objectName) const
{
    for (const QQuickItem* item = find(objectName); item; item = item->parentItem()) {
        if (!item->isVisible() || item->opacity() == 0.0)
            return false;
        if (item == m_view.rootObject())
            return true;
    }
    return false;
}

void EditorScreen::tap(const char* objectName)
{
    const QQuickItem* item = find(objectName);
    if (!item)
        qFatal("no item named %s on screen", objectName);
    tap(item);
}

void EditorScreen::tap(const QQuickItem* item)
{
    tap(item, QPointF(item->width() / 2, item->height() / 2));
}

void EditorScreen::tap(const QQuickItem* item, QPointF point)
{
    // Rows place a button that just appeared only when they are polished: aim after that, as a person would.
    QQuickTest::qWaitForPolish(&m_view);
    const QPoint at = item->mapToScene(point).toPoint();
    // A finger rests a moment: two taps at the very same instant are not something a person makes.
    QTest::touchEvent(&m_view, m_touch).press(0, at);
    QTest::qWait(50);
    QTest::touchEvent(&m_view, m_touch).release(0, at);
}

void EditorScreen::drag(const QQuickItem* item, QPointF from, QPointF to)
{
    QQuickTest::qWaitForPolish(&m_view);
    const QPoint start = item->mapToScene(from).toPoint();
    QTest::mousePress(&m_view, Qt::LeftButton, {}, start);
    constexpr int kSteps = 12;
    for (int step = 1; step <= kSteps; ++step) {
        const QPointF local = from + (to - from) * (qreal(step) / kSteps);
        QTest::mouseMove(&m_view, item->mapToScene(local).toPoint(), 5);
    }
    QTest::mouseRelease(&m_view, Qt::LeftButton, {}, item->mapToScene(to).toPoint());
}

void EditorScreen::touchDrag(const QQuickItem* item, QPointF from, QPointF to)
{
    QQuickTest::qWaitForPolish(&m_view);
    QTest::touchEvent(&m_view, m_touch).press(0, item->mapToScene(from).toPoint());
    // A finger reports a move every few points; the first beyond the drag threshold is not delivered.
    const int steps = std::max(12, int(QLineF(from, to).length() / 4));
    for (int step = 1; step <= steps; ++step) {
        const QPointF local = from + (to - from) * (qreal(step) / steps);
        QTest::touchEvent(&m_view, m_touch).move(0, item->mapToScene(local).toPoint());
        QTest::qWait(5);
    }
    QTest::touchEvent(&m_view, m_touch).release(0, item->mapToScene(to).toPoint());
}

void EditorScreen::twoFingerGesture(const QQuickItem* item, QPointF centre, qreal spread, qreal degrees,
                                    qreal scale)
{
    QQuickTest::qWaitForPolish(&m_view);
    const auto finger = [&](qreal progress, int which) {
        const qreal angle = qDegreesToRadians(degrees * progress) + (which == 0 ? M_PI : 0.0);
        const qreal radius = spread / 2 * (1 + (scale - 1) * progress);
        return item->mapToScene(centre + QPointF(std::cos(angle), std::sin(angle)) * radius).toPoint();
    };
    QTest::touchEvent(&m_view, m_touch).press(0, finger(0, 0)).press(1, finger(0, 1));
    constexpr int kSteps = 12;
    for (int step = 1; step <= kSteps; ++step) {
        const qreal progress = qreal(step) / kSteps;
        QTest::touchEvent(&m_view, m_touch).move(0, finger(progress, 0)).move(1, finger(progress, 1));
        QTest::qWait(5);
    }
    QTest::touchEvent(&m_view, m_touch).release(0, finger(1, 0)).release(1, finger(1, 1));
}

void EditorScreen::key(Qt::Key key, Qt::KeyboardModifiers modifiers)
{
    QTest::keyClick(&m_view, key, modifiers);
}

bool EditorScreen::waitForToolPage()
{
    const QQuickItem* loader = find("toolPage");
    const QObject* spring = m_view.rootObject()->findChild<QObject*>(QStringLiteral("pageSpring"));
    // The spring starts with the next animation tick, not at once: wait for it to start, then to settle.
    const bool started =
        QTest::qWaitFor([&] { return spring && spring->property("running").toBool(); }, patience(500));
    return QTest::qWaitFor(
        [&] {
            return started && toolPage() && !spring->property("running").toBool() && loader->scale() == 1.0;
        },
        patience(5000));
}

QQuickItem* EditorScreen::toolPage() const
{
    const QQuickItem* loader = find("toolPage");
    return loader ? loader->childItems().value(0) : nullptr;
}

QuorvaneSdkImageEditorResult EditorScreen::completion(int index) const
{
    return m_completions->at(index).at(0).value<QuorvaneSdkImageEditorResult>();
}
