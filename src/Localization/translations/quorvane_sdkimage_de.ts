<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de">
<context>
    <name>AdjustImageView</name>
    <message>
        <source>Undo</source>
        <translation>Rückgängig</translation>
    </message>
    <message>
        <source>Picture being adjusted</source>
        <translation>Bild, das angepasst wird</translation>
    </message>
</context>
<context>
    <name>BrandTextField</name>
    <message>
        <source>Done</source>
        <translation>Fertig</translation>
    </message>
</context>
<context>
    <name>CanvasView</name>
    <message>
        <source>Undo</source>
        <translation>Rückgängig</translation>
    </message>
    <message>
        <source>Draw</source>
        <translation>Zeichnen</translation>
    </message>
    <message>
        <source>Text</source>
        <translation>Text</translation>
    </message>
    <message>
        <source>Move</source>
        <translation>Verschieben</translation>
    </message>
</context>
<context>
    <name>ChooseColorView</name>
    <message>
        <source>Colour %1</source>
        <translation>Farbe %1</translation>
    </message>
    <message>
        <source>Colours</source>
        <translation>Farben</translation>
    </message>
</context>
<context>
    <name>ChooseIntensityView</name>
    <message>
        <source>Intensity</source>
        <translation>Intensität</translation>
    </message>
</context>
<context>
    <name>ChooseLineWidthView</name>
    <message>
        <source>Line width</source>
        <translation>Linienstärke</translation>
    </message>
</context>
<context>
    <name>CropperView</name>
    <message>
        <source>Undo</source>
        <translation>Rückgängig</translation>
    </message>
    <message>
        <source>Rotate left</source>
        <translation>Nach links drehen</translation>
    </message>
    <message>
        <source>Rotate right</source>
        <translation>Nach rechts drehen</translation>
    </message>
    <message>
        <source>Flip horizontally</source>
        <translation>Horizontal spiegeln</translation>
    </message>
    <message>
        <source>Flip vertically</source>
        <translation>Vertikal spiegeln</translation>
    </message>
    <message>
        <source>Crop frame: drag an edge, a corner or the middle</source>
        <translation>Zuschneiderahmen: eine Kante, eine Ecke oder die Mitte ziehen</translation>
    </message>
    <message>
        <source>CROP</source>
        <translation>ZUSCHNEIDEN</translation>
    </message>
</context>
<context>
    <name>DiscardEditsView</name>
    <message>
        <source>Discard your edits?</source>
        <translation>Änderungen verwerfen?</translation>
    </message>
    <message>
        <source>Keep editing</source>
        <translation>Weiter bearbeiten</translation>
    </message>
    <message>
        <source>Discard</source>
        <translation>Verwerfen</translation>
    </message>
</context>
<context>
    <name>ErrorView</name>
    <message>
        <source>Sorry</source>
        <translation>Entschuldigung</translation>
    </message>
    <message>
        <source>Accept</source>
        <translation>OK</translation>
    </message>
</context>
<context>
    <name>Filter</name>
    <message>
        <source>Blue</source>
        <translation>Blau</translation>
    </message>
    <message>
        <source>Green</source>
        <translation>Grün</translation>
    </message>
    <message>
        <source>Gray</source>
        <translation>Grau</translation>
    </message>
    <message>
        <source>Pink</source>
        <translation>Pink</translation>
    </message>
    <message>
        <source>Yellow</source>
        <translation>Gelb</translation>
    </message>
    <message>
        <source>Orange</source>
        <translation>Orange</translation>
    </message>
    <message>
        <source>Red</source>
        <translation>Rot</translation>
    </message>
    <message>
        <source>Brown</source>
        <translation>Braun</translation>
    </message>
    <message>
        <source>White</source>
        <translation>Weiß</translation>
    </message>
    <message>
        <source>Original</source>
        <translation>Original</translation>
    </message>
    <message>
        <source>None</source>
        <translation>Keine</translation>
    </message>
    <message>
        <source>Adjust #1</source>
        <translation>Anpassung 1</translation>
    </message>
    <message>
        <source>Adjust #2</source>
        <translation>Anpassung 2</translation>
    </message>
    <message>
        <source>Adjust #3</source>
        <translation>Anpassung 3</translation>
    </message>
    <message>
        <source>Adjust #4</source>
        <translation>Anpassung 4</translation>
    </message>
    <message>
        <source>Adjust #5</source>
        <translation>Anpassung 5</translation>
    </message>
    <message>
        <source>Adjust #6</source>
        <translation>Anpassung 6</translation>
    </message>
    <message>
        <source>Adjust #7</source>
        <translation>Anpassung 7</translation>
    </message>
    <message>
        <source>Adjust #8</source>
        <translation>Anpassung 8</translation>
    </message>
    <message>
        <source>Adjust #9</source>
        <translation>Anpassung 9</translation>
    </message>
</context>
<context>
    <name>FiltersView</name>
    <message>
        <source>Undo</source>
        <translation>Rückgängig</translation>
    </message>
    <message>
        <source>Picture with the chosen filter</source>
        <translation>Bild mit dem gewählten Filter</translation>
    </message>
</context>
<context>
    <name>ImageEditorView</name>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>Rückgängig</translation>
    </message>
    <message>
        <source>CONTINUE</source>
        <translation>WEITER</translation>
    </message>
    <message>
        <source>Picture being edited</source>
        <translation>Bild, das bearbeitet wird</translation>
    </message>
    <message>
        <source>Crop</source>
        <translation>Zuschneiden</translation>
    </message>
    <message>
        <source>Draw</source>
        <translation>Zeichnen</translation>
    </message>
    <message>
        <source>Filters</source>
        <translation>Filter</translation>
    </message>
    <message>
        <source>Adjust</source>
        <translation>Anpassen</translation>
    </message>
</context>
<context>
    <name>SelectFilterView</name>
    <message>
        <source>Choices</source>
        <translation>Auswahl</translation>
    </message>
</context>
<context>
    <name>TextImageView</name>
    <message>
        <source>CANCEL</source>
        <translation>ABBRECHEN</translation>
    </message>
    <message>
        <source>Add the text</source>
        <translation>Text hinzufügen</translation>
    </message>
    <message>
        <source>Add some text...</source>
        <translation>Text eingeben...</translation>
    </message>
    <message>
        <source>Italic</source>
        <translation>Kursiv</translation>
    </message>
    <message>
        <source>Bold</source>
        <translation>Fett</translation>
    </message>
    <message>
        <source>Uppercase</source>
        <translation>Großbuchstaben</translation>
    </message>
    <message>
        <source>Text size</source>
        <translation>Textgröße</translation>
    </message>
</context>
<context>
    <name>ToolPageBar</name>
    <message>
        <source>ACCEPT</source>
        <translation>ÜBERNEHMEN</translation>
    </message>
    <message>
        <source>CANCEL</source>
        <translation>ABBRECHEN</translation>
    </message>
</context>
<context>
    <name>TransformView</name>
    <message>
        <source>Rotation</source>
        <translation>Drehen</translation>
    </message>
    <message>
        <source>Scale</source>
        <translation>Größe</translation>
    </message>
    <message>
        <source>Alignment</source>
        <translation>Ausrichtung</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Löschen</translation>
    </message>
    <message>
        <source>Done</source>
        <translation>Fertig</translation>
    </message>
    <message>
        <source>Back</source>
        <translation>Zurück</translation>
    </message>
    <message>
        <source>To left</source>
        <translation>Nach links</translation>
    </message>
    <message>
        <source>To right</source>
        <translation>Nach rechts</translation>
    </message>
    <message>
        <source>90°</source>
        <translation>90°</translation>
    </message>
    <message>
        <source>180°</source>
        <translation>180°</translation>
    </message>
    <message>
        <source>270°</source>
        <translation>270°</translation>
    </message>
    <message>
        <source>Scale down</source>
        <translation>Verkleinern</translation>
    </message>
    <message>
        <source>Scale up</source>
        <translation>Vergrößern</translation>
    </message>
    <message>
        <source>0.25x</source>
        <translation>0,25x</translation>
    </message>
    <message>
        <source>0.5x</source>
        <translation>0,5x</translation>
    </message>
    <message>
        <source>1x</source>
        <translation>1x</translation>
    </message>
    <message>
        <source>1.25x</source>
        <translation>1,25x</translation>
    </message>
    <message>
        <source>2x</source>
        <translation>2x</translation>
    </message>
    <message>
        <source>4x</source>
        <translation>4x</translation>
    </message>
    <message>
        <source>Top leading</source>
        <translation>Oben links</translation>
    </message>
    <message>
        <source>Top</source>
        <translation>Oben</translation>
    </message>
    <message>
        <source>Top trailing</source>
        <translation>Oben rechts</translation>
    </message>
    <message>
        <source>Leading</source>
        <translation>Links</translation>
    </message>
    <message>
        <source>Center</source>
        <translation>Mitte</translation>
    </message>
    <message>
        <source>Trailing</source>
        <translation>Rechts</translation>
    </message>
    <message>
        <source>Bottom leading</source>
        <translation>Unten links</translation>
    </message>
    <message>
        <source>Bottom</source>
        <translation>Unten</translation>
    </message>
    <message>
        <source>Bottom trailing</source>
        <translation>Unten rechts</translation>
    </message>
</context>
<context>
    <name>WorkIndicator</name>
    <message>
        <source>Working</source>
        <translation>Wird bearbeitet</translation>
    </message>
</context>
</TS>
