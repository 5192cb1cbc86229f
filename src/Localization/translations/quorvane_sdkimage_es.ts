<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="es">
<context>
    <name>AdjustImageView</name>
    <message>
        <source>Undo</source>
        <translation>Deshacer</translation>
    </message>
    <message>
        <source>Picture being adjusted</source>
        <translation>Imagen que se está ajustando</translation>
    </message>
</context>
<context>
    <name>BrandTextField</name>
    <message>
        <source>Done</source>
        <translation>OK</translation>
    </message>
</context>
<context>
    <name>CanvasView</name>
    <message>
        <source>Undo</source>
        <translation>Deshacer</translation>
    </message>
    <message>
        <source>Draw</source>
        <translation>Dibujar</translation>
    </message>
    <message>
        <source>Text</source>
        <translation>Texto</translation>
    </message>
    <message>
        <source>Move</source>
        <translation>Mover</translation>
    </message>
</context>
<context>
    <name>ChooseColorView</name>
    <message>
        <source>Colour %1</source>
        <translation>Color %1</translation>
    </message>
    <message>
        <source>Colours</source>
        <translation>Colores</translation>
    </message>
</context>
<context>
    <name>ChooseIntensityView</name>
    <message>
        <source>Intensity</source>
        <translation>Intensidad</translation>
    </message>
</context>
<context>
    <name>ChooseLineWidthView</name>
    <message>
        <source>Line width</source>
        <translation>Grosor de línea</translation>
    </message>
</context>
<context>
    <name>CropperView</name>
    <message>
        <source>Undo</source>
        <translation>Deshacer</translation>
    </message>
    <message>
        <source>Rotate left</source>
        <translation>Girar a la izquierda</translation>
    </message>
    <message>
        <source>Rotate right</source>
        <translation>Girar a la derecha</translation>
    </message>
    <message>
        <source>Flip horizontally</source>
        <translation>Voltear en horizontal</translation>
    </message>
    <message>
        <source>Flip vertically</source>
        <translation>Voltear en vertical</translation>
    </message>
    <message>
        <source>Crop frame: drag an edge, a corner or the middle</source>
        <translation>Marco de recorte: arrastra un borde, una esquina o el centro</translation>
    </message>
    <message>
        <source>CROP</source>
        <translation>RECORTAR</translation>
    </message>
</context>
<context>
    <name>DiscardEditsView</name>
    <message>
        <source>Discard your edits?</source>
        <translation>¿Descartar los cambios?</translation>
    </message>
    <message>
        <source>Keep editing</source>
        <translation>Seguir editando</translation>
    </message>
    <message>
        <source>Discard</source>
        <translation>Descartar</translation>
    </message>
</context>
<context>
    <name>ErrorView</name>
    <message>
        <source>Sorry</source>
        <translation>Lo sentimos</translation>
    </message>
    <message>
        <source>Accept</source>
        <translation>Aceptar</translation>
    </message>
</context>
<context>
    <name>Filter</name>
    <message>
        <source>Blue</source>
        <translation>Azul</translation>
    </message>
    <message>
        <source>Green</source>
        <translation>Verde</translation>
    </message>
    <message>
        <source>Gray</source>
        <translation>Gris</translation>
    </message>
    <message>
        <source>Pink</source>
        <translation>Rosa</translation>
    </message>
    <message>
        <source>Yellow</source>
        <translation>Amarillo</translation>
    </message>
    <message>
        <source>Orange</source>
        <translation>Naranja</translation>
    </message>
    <message>
        <source>Red</source>
        <translation>Rojo</translation>
    </message>
    <message>
        <source>Brown</source>
        <translation>Marrón</translation>
    </message>
    <message>
        <source>White</source>
        <translation>Blanco</translation>
    </message>
    <message>
        <source>Original</source>
        <translation>Original</translation>
    </message>
    <message>
        <source>None</source>
        <translation>Ninguno</translation>
    </message>
    <message>
        <source>Adjust #1</source>
        <translation>Ajuste 1</translation>
    </message>
    <message>
        <source>Adjust #2</source>
        <translation>Ajuste 2</translation>
    </message>
    <message>
        <source>Adjust #3</source>
        <translation>Ajuste 3</translation>
    </message>
    <message>
        <source>Adjust #4</source>
        <translation>Ajuste 4</translation>
    </message>
    <message>
        <source>Adjust #5</source>
        <translation>Ajuste 5</translation>
    </message>
    <message>
        <source>Adjust #6</source>
        <translation>Ajuste 6</translation>
    </message>
    <message>
        <source>Adjust #7</source>
        <translation>Ajuste 7</translation>
    </message>
    <message>
        <source>Adjust #8</source>
        <translation>Ajuste 8</translation>
    </message>
    <message>
        <source>Adjust #9</source>
        <translation>Ajuste 9</translation>
    </message>
</context>
<context>
    <name>FiltersView</name>
    <message>
        <source>Undo</source>
        <translation>Deshacer</translation>
    </message>
    <message>
        <source>Picture with the chosen filter</source>
        <translation>Imagen con el filtro elegido</translation>
    </message>
</context>
<context>
    <name>ImageEditorView</name>
    <message>
        <source>Close</source>
        <translation>Cerrar</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>Deshacer</translation>
    </message>
    <message>
        <source>CONTINUE</source>
        <translation>CONTINUAR</translation>
    </message>
    <message>
        <source>Picture being edited</source>
        <translation>Imagen que se está editando</translation>
    </message>
    <message>
        <source>Crop</source>
        <translation>Recortar</translation>
    </message>
    <message>
        <source>Draw</source>
        <translation>Dibujar</translation>
    </message>
    <message>
        <source>Filters</source>
        <translation>Filtros</translation>
    </message>
    <message>
        <source>Adjust</source>
        <translation>Ajustar</translation>
    </message>
</context>
<context>
    <name>SelectFilterView</name>
    <message>
        <source>Choices</source>
        <translation>Opciones</translation>
    </message>
</context>
<context>
    <name>TextImageView</name>
    <message>
        <source>CANCEL</source>
        <translation>CANCELAR</translation>
    </message>
    <message>
        <source>Add the text</source>
        <translation>Añadir el texto</translation>
    </message>
    <message>
        <source>Add some text...</source>
        <translation>Escribe algo...</translation>
    </message>
    <message>
        <source>Italic</source>
        <translation>Cursiva</translation>
    </message>
    <message>
        <source>Bold</source>
        <translation>Negrita</translation>
    </message>
    <message>
        <source>Uppercase</source>
        <translation>Mayúsculas</translation>
    </message>
    <message>
        <source>Text size</source>
        <translation>Tamaño del texto</translation>
    </message>
</context>
<context>
    <name>ToolPageBar</name>
    <message>
        <source>ACCEPT</source>
        <translation>ACEPTAR</translation>
    </message>
    <message>
        <source>CANCEL</source>
        <translation>CANCELAR</translation>
    </message>
</context>
<context>
    <name>TransformView</name>
    <message>
        <source>Rotation</source>
        <translation>Girar</translation>
    </message>
    <message>
        <source>Scale</source>
        <translation>Tamaño</translation>
    </message>
    <message>
        <source>Alignment</source>
        <translation>Alineación</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Eliminar</translation>
    </message>
    <message>
        <source>Done</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Back</source>
        <translation>Atrás</translation>
    </message>
    <message>
        <source>To left</source>
        <translation>A la izquierda</translation>
    </message>
    <message>
        <source>To right</source>
        <translation>A la derecha</translation>
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
        <translation>Reducir</translation>
    </message>
    <message>
        <source>Scale up</source>
        <translation>Ampliar</translation>
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
        <translation>Arriba a la izquierda</translation>
    </message>
    <message>
        <source>Top</source>
        <translation>Arriba</translation>
    </message>
    <message>
        <source>Top trailing</source>
        <translation>Arriba a la derecha</translation>
    </message>
    <message>
        <source>Leading</source>
        <translation>Izquierda</translation>
    </message>
    <message>
        <source>Center</source>
        <translation>Centro</translation>
    </message>
    <message>
        <source>Trailing</source>
        <translation>Derecha</translation>
    </message>
    <message>
        <source>Bottom leading</source>
        <translation>Abajo a la izquierda</translation>
    </message>
    <message>
        <source>Bottom</source>
        <translation>Abajo</translation>
    </message>
    <message>
        <source>Bottom trailing</source>
        <translation>Abajo a la derecha</translation>
    </message>
</context>
<context>
    <name>WorkIndicator</name>
    <message>
        <source>Working</source>
        <translation>Procesando</translation>
    </message>
</context>
</TS>
