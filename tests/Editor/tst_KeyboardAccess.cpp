#include "Editor/Canvas/CanvasViewModel.h"
#include "EditorScreen.h"
#include "TestImages.h"

#include <QAccessible>
#include <QMetaEnum>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>

using namespace TestImages;

namespace {

// What a screen reader announces for the item: "name [Role]".
QString announced(QObject* object)
{
    QAccessibleInterface* iface = object ? QAccessible::queryAccessibleInterface(object) : nullptr;
    if (!iface)
        return QStringLiteral("(nothing)");
    return QStringLiteral("%1 [%2]").arg(iface->text(QAccessible::Name),
                                         QMetaEnum::fromType<QAccessible::Role>().valueToKey(iface->role()));
}

// Everything a screen reader announces on the screen, by name: what is invisible it passes over.
QStringList namesInTree(QAccessibleInterface* iface)
{
    QStringList names;
    for (int i = 0; iface && i < iface->childCount(); ++i) {
        QAccessibleInterface* child = iface->child(i);
        if (!child->state().invisible)
            names << child->text(QAccessible::Name) << namesInTree(child);
    }
    return names;
}

// Pixels in the brand colour just above and below the item, where its focus ring passes; not beside it,
// where the ring of a neighbour may lie.
int ringPixels(QQuickView& view, const QQuickItem* item)
{
    const QRect around =
        item->mapRectToScene(QRectF(QPointF(0, 0), item->size())).toAlignedRect().adjusted(1, -6, -1, 6);
    const QImage grab = view.grabWindow();
    int count = 0;
    for (int y = around.top(); y <= around.bottom(); ++y) {
        for (int x = around.left(); x <= around.right(); ++x) {
            const QColor c = grab.pixelColor(x, y);
            count += c.red() > 230 && qAbs(c.green() - 0xB3) < 30 && c.blue() < 40;
        }
    }
    return count;
}

} // namespace

class tst_KeyboardAccess : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir m_dir;
    QString m_photo;

    QuorvaneSdkImageEditorPreset preset(const QString& screenName) const
    {
        if (screenName == u"error")
            return QuorvaneSdkImageEditorPreset(QImage(), QuorvaneSdkImageOutputFormat::png(), std::nullopt,
                                                std::nullopt);
        return QuorvaneSdkImageEditorPreset(QUrl::fromLocalFile(m_photo));
    }

    // Brings the editor to \a screenName as the host or a tap would; the base page has an edit to undo.
    static bool open(EditorScreen& screen, const QString& screenName)
    {
        ImageEditorViewModel* editor = screen.editor();
        if (screenName == u"error")
            return !editor;
        if (screenName == u"base" || screenName == u"asking") {
            editor->addNewImageVerion(quadrants(QSize(40, 30)));
            if (screenName == u"asking")
                editor->requestClose();
            return true;
        }
        const bool text = screenName == u"text entry";
        const std::optional<ImageEditorViewModel::Page> page =
            ImageEditorViewModel::page(text ? QStringLiteral("canvas") : screenName);
        editor->navigate(*page);
        if (!screen.waitForToolPage())
            return false;
        if (editor->canvas() && !QTest::qWaitFor([&] { return editor->canvas()->isCropperSetup(); }))
            return false;
        if (text)
            editor->canvas()->enableText();
        return !text || QTest::qWaitFor([&] { return screen.find("textField") != nullptr; });
    }

    static QString state(const EditorScreen& screen)
    {
        if (screen.completionCount() > 0)
            return QStringLiteral("answered");
        const ImageEditorViewModel* editor = screen.editor();
        if (!editor)
            return QStringLiteral("error");
        if (editor->canvas() && editor->canvas()->isEnteringText())
            return QStringLiteral("text entry");
        if (editor->isConfirmingClose())
            return QStringLiteral("asking");
        return editor->pageName();
    }

    static QString focused(EditorScreen& screen) { return announced(screen.view().activeFocusItem()); }

    // Tab until the control announced as \a name has the focus.
    static bool tabTo(EditorScreen& screen, const QString& name)
    {
        for (int presses = 0; presses < 30; ++presses) {
            screen.key(Qt::Key_Tab);
            if (focused(screen).startsWith(name + QStringLiteral(" [")))
                return true;
        }
        return false;
    }

private slots:
    void initTestCase()
    {
        QStandardPaths::setTestModeEnabled(true);
        m_photo = m_dir.filePath(QStringLiteral("photo.png"));
        QVERIFY(writeFile(m_photo, encode(QImage(photoPath()).copy(1000, 800, 1200, 900), "png")));
        // As when a screen reader is running: controls then describe themselves.
        QAccessible::setActive(true);
    }

    void tab_visitsEveryControlInReadingOrder_andWraps_data()
    {
        // Rows are named after their screens.
        QTest::addColumn<QStringList>("order");
        // Announced to screen readers although hidden in their place: none.
        QTest::addColumn<QStringList>("unannounced");

        QTest::newRow("base") << QStringList{"Close [Button]", "Undo [Button]", "CONTINUE [Button]",
                                             "Crop [PageTab]", "Draw [PageTab]"}
                              << QStringList{"Filters", "Adjust"};
        // CROP is disabled until there is something to crop.
        QTest::newRow("crop") << QStringList{"Rotate left [Button]", "Rotate right [Button]",
                                             "Flip horizontally [Button]", "Flip vertically [Button]",
                                             "CANCEL [Button]"}
                              << QStringList{"Undo"};
        QTest::newRow("canvas") << QStringList{"Draw [Button]", "Text [Button]", "Line width [Slider]",
                                               "Colour 10 [Button]", "CANCEL [Button]"}
                                << QStringList{"Undo", "Move"};
        QTest::newRow("text entry")
            << QStringList{"CANCEL [Button]",    "Add the text [Button]", "Add some text... [EditableText]",
                           "Done [Button]",      "Italic [Button]",       "Bold [Button]",
                           "Uppercase [Button]", "Text size [Slider]",    "Colour 10 [Button]"}
            << QStringList{};
        QTest::newRow("filters") << QStringList{"Choices [List]", "Intensity [Slider]", "CANCEL [Button]",
                                                "ACCEPT [Button]"}
                                 << QStringList{"Undo"};
        QTest::newRow("adjust") << QStringList{"Choices [List]", "Intensity [Slider]", "CANCEL [Button]",
                                               "ACCEPT [Button]"}
                                << QStringList{"Undo"};
        QTest::newRow("error") << QStringList{"Accept [Button]"} << QStringList{};
    }

    void tab_visitsEveryControlInReadingOrder_andWraps()
    {
        const QString screenName = QString::fromUtf8(QTest::currentDataTag());
        QFETCH(QStringList, order);
        QFETCH(QStringList, unannounced);
        EditorScreen screen(preset(screenName));
        QVERIFY(open(screen, screenName));

        // Once round and back to the first, from wherever the focus was when the screen opened.
        QStringList forward;
        for (qsizetype i = 0; i <= order.size(); ++i) {
            screen.key(Qt::Key_Tab);
            forward << focused(screen);
        }
        QCOMPARE(forward.last(), forward.first());
        const qsizetype start = order.indexOf(forward.first());
        QVERIFY2(start >= 0, qPrintable(forward.join(u", ")));
        QStringList expected = order.mid(start) + order.mid(0, start);
        expected << expected.first();
        QCOMPARE(forward, expected);

        QStringList backward;
        for (qsizetype i = 0; i < order.size(); ++i) {
            screen.key(Qt::Key_Backtab, Qt::ShiftModifier);
            backward.prepend(focused(screen));
        }
        QCOMPARE(backward + QStringList{forward.first()}, forward);

        const QStringList names = namesInTree(QAccessible::queryAccessibleInterface(&screen.view()));
        for (const QString& name : unannounced)
            QVERIFY2(!names.contains(name), qPrintable(name));
    }

    // Keys do what a tap does. Sideways controls take the arrow keys; what they choose is undone as a swipe
    // is.
    void keys_doWhatATapDoes_data()
    {
        QTest::addColumn<QString>("screenName");
        QTest::addColumn<QString>("control");
        QTest::addColumn<QKeySequence>("keys");
        // The item whose text is expected; the screen shown when empty.
        QTest::addColumn<QByteArray>("shown");
        QTest::addColumn<QString>("expected");
        // What Ctrl+Z brings back; when empty, there is nothing to undo.
        QTest::addColumn<QString>("undone");
        const auto row = [](const char* name, const char* screen, const char* control, QKeySequence keys,
                            const char* shown, const char* expected, const char* undone = "") {
            QTest::newRow(name) << QString::fromUtf8(screen) << QString::fromUtf8(control) << keys
                                << QByteArray(shown) << QString::fromUtf8(expected)
                                << QString::fromUtf8(undone);
        };
        const QKeySequence space(Qt::Key_Space);
        const QKeySequence enter(Qt::Key_Return);
        row("Return on the Crop tab", "base", "Crop", enter, "", "crop");
        row("Space on the Draw tab", "base", "Draw", space, "", "canvas");
        // With an edit to lose, Close asks first.
        row("Enter on Close", "base", "Close", QKeySequence(Qt::Key_Enter), "", "asking");
        row("Return on Keep editing", "asking", "Keep editing", enter, "", "base");
        row("Space on Discard", "asking", "Discard", space, "", "answered");
        row("Space on CANCEL", "crop", "CANCEL", space, "", "base");
        row("Escape on a crop button", "crop", "Rotate left", QKeySequence(Qt::Key_Escape), "", "base");
        row("Return on Text", "canvas", "Text", enter, "", "text entry");
        row("Space on ACCEPT of adjust", "adjust", "ACCEPT", space, "", "base");
        row("Space on the alert", "error", "Accept", space, "", "answered");
        row("Right on the filters", "filters", "Choices", QKeySequence(Qt::Key_Right), "selectedEntryName",
            "Blue", "Original");
        row("Left on the first filter", "filters", "Choices", QKeySequence(Qt::Key_Left), "selectedEntryName",
            "Original");
        row("Left on the intensity", "filters", "Intensity", QKeySequence(Qt::Key_Left), "intensityValue",
            "98", "100");
        row("Right twice on the adjustments", "adjust", "Choices", QKeySequence(Qt::Key_Right, Qt::Key_Right),
            "selectedEntryName", "Adjust #2");
        // White is chosen to begin with; black lies before it.
        row("Left on the swatches", "canvas", "Colour 10", QKeySequence(Qt::Key_Left, Qt::Key_Space),
            "strokeColours", "#000000");
    }

    void keys_doWhatATapDoes()
    {
        QFETCH(QString, screenName);
        QFETCH(QString, control);
        QFETCH(QKeySequence, keys);
        QFETCH(QByteArray, shown);
        QFETCH(QString, expected);
        QFETCH(QString, undone);
        EditorScreen screen(preset(screenName));
        QVERIFY(open(screen, screenName));
        const auto value = [&] {
            if (shown.isEmpty())
                return state(screen);
            const QQuickItem* item = screen.find(shown.constData());
            return item->property("text").isValid() ? item->property("text").toString()
                                                    : item->property("selectedColor").value<QColor>().name();
        };

        QVERIFY2(tabTo(screen, control), qPrintable(focused(screen)));
        for (int i = 0; i < keys.count(); ++i)
            screen.key(keys[i].key());
        QTRY_COMPARE(value(), expected);
        // No key reaches a control that is no longer shown.
        const QQuickItem* focus = screen.view().activeFocusItem();
        QVERIFY2(!focus || focus->isVisible(), qPrintable(focused(screen)));
        QCOMPARE(screen.completionCount(), expected == u"answered" ? 1 : 0);
        if (shown.isEmpty())
            return;
        const QStringList names = namesInTree(QAccessible::queryAccessibleInterface(&screen.view()));
        QCOMPARE(names.contains(QStringLiteral("Undo")), !undone.isEmpty());
        if (undone.isEmpty())
            return;
        screen.key(Qt::Key_Z, Qt::ControlModifier);
        QTRY_COMPARE(value(), undone);
    }

    // The ring shows where the keyboard is; a finger moves no focus and leaves no ring.
    void focusRing_showsForTheKeyboardOnly()
    {
        EditorScreen screen(preset(QStringLiteral("crop")));
        QVERIFY(open(screen, QStringLiteral("crop")));
        QQuickItem* rotate = screen.find("rotateLeftButton");

        screen.tap(rotate);
        QVERIFY(!rotate->hasActiveFocus());
        QCOMPARE(ringPixels(screen.view(), rotate), 0);

        QVERIFY(tabTo(screen, QStringLiteral("Rotate left")));
        QTRY_VERIFY(ringPixels(screen.view(), rotate) > 40);
        screen.key(Qt::Key_Tab);
        QTRY_COMPARE(ringPixels(screen.view(), rotate), 0);
    }
};

QTEST_MAIN(tst_KeyboardAccess)
#include "tst_KeyboardAccess.moc"
