<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="pt_BR">
<context>
    <name>AdjustImageView</name>
    <message>
        <source>Undo</source>
        <translation>Desfazer</translation>
    </message>
    <message>
        <source>Picture being adjusted</source>
        <translation>Imagem sendo ajustada</translation>
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
        <translation>Desfazer</translation>
    </message>
    <message>
        <source>Draw</source>
        <translation>Desenhar</translation>
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
        <translation>Cor %1</translation>
    </message>
    <message>
        <source>Colours</source>
        <translation>Cores</translation>
    </message>
</context>
<context>
    <name>ChooseIntensityView</name>
    <message>
        <source>Intensity</source>
        <translation>Intensidade</translation>
    </message>
</context>
<context>
    <name>ChooseLineWidthView</name>
    <message>
        <source>Line width</source>
        <translation>Espessura da linha</translation>
    </message>
</context>
<context>
    <name>CropperView</name>
    <message>
        <source>Undo</source>
        <translation>Desfazer</translation>
    </message>
    <message>
        <source>Rotate left</source>
        <translation>Girar para a esquerda</translation>
    </message>
    <message>
        <source>Rotate right</source>
        <translation>Girar para a direita</translation>
    </message>
    <message>
        <source>Flip horizontally</source>
        <translation>Espelhar na horizontal</translation>
    </message>
    <message>
        <source>Flip vertically</source>
        <translation>Espelhar na vertical</translation>
    </message>
    <message>
        <source>Crop frame: drag an edge, a corner or the middle</source>
        <translation>Moldura de corte: arraste uma borda, um canto ou o centro</translation>
    </message>
    <message>
        <source>CROP</source>
        <translation>CORTAR</translation>
    </message>
</context>
<context>
    <name>DiscardEditsView</name>
    <message>
        <source>Discard your edits?</source>
        <translation>Descartar suas edições?</translation>
    </message>
    <message>
        <source>Keep editing</source>
        <translation>Continuar editando</translation>
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
        <translation>Desculpe</translation>
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
        <translation>Azul</translation>
    </message>
    <message>
        <source>Green</source>
        <translation>Verde</translation>
    </message>
    <message>
        <source>Gray</source>
        <translation>Cinza</translation>
    </message>
    <message>
        <source>Pink</source>
        <translation>Rosa</translation>
    </message>
    <message>
        <source>Yellow</source>
        <translation>Amarelo</translation>
    </message>
    <message>
        <source>Orange</source>
        <translation>Laranja</translation>
    </message>
    <message>
        <source>Red</source>
        <translation>Vermelho</translation>
    </message>
    <message>
        <source>Brown</source>
        <translation>Marrom</translation>
    </message>
    <message>
        <source>White</source>
        <translation>Branco</translation>
    </message>
    <message>
        <source>Original</source>
        <translation>Original</translation>
    </message>
    <message>
        <source>None</source>
        <translation>Nenhum</translation>
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
        <translation>Desfazer</translation>
    </message>
    <message>
        <source>Picture with the chosen filter</source>
        <translation>Imagem com o filtro escolhido</translation>
    </message>
</context>
<context>
    <name>ImageEditorView</name>
    <message>
        <source>Close</source>
        <translation>Fechar</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>Desfazer</translation>
    </message>
    <message>
        <source>CONTINUE</source>
        <translation>CONTINUAR</translation>
    </message>
    <message>
        <source>Picture being edited</source>
        <translation>Imagem sendo editada</translation>
    </message>
    <message>
        <source>Crop</source>
        <translation>Cortar</translation>
    </message>
    <message>
        <source>Draw</source>
        <translation>Desenhar</translation>
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
        <translation>Opções</translation>
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
        <translation>Adicionar o texto</translation>
    </message>
    <message>
        <source>Add some text...</source>
        <translation>Digite um texto...</translation>
    </message>
    <message>
        <source>Italic</source>
        <translation>Itálico</translation>
    </message>
    <message>
        <source>Bold</source>
        <translation>Negrito</translation>
    </message>
    <message>
        <source>Uppercase</source>
        <translation>Maiúsculas</translation>
    </message>
    <message>
        <source>Text size</source>
        <translation>Tamanho do texto</translation>
    </message>
</context>
<context>
    <name>ToolPageBar</name>
    <message>
        <source>ACCEPT</source>
        <translation>APLICAR</translation>
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
        <translation>Tamanho</translation>
    </message>
    <message>
        <source>Alignment</source>
        <translation>Alinhamento</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Apagar</translation>
    </message>
    <message>
        <source>Done</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Back</source>
        <translation>Voltar</translation>
    </message>
    <message>
        <source>To left</source>
        <translation>Para a esquerda</translation>
    </message>
    <message>
        <source>To right</source>
        <translation>Para a direita</translation>
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
        <translation>Diminuir</translation>
    </message>
    <message>
        <source>Scale up</source>
        <translation>Aumentar</translation>
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
        <translation>Superior esquerdo</translation>
    </message>
    <message>
        <source>Top</source>
        <translation>Superior</translation>
    </message>
    <message>
        <source>Top trailing</source>
        <translation>Superior direito</translation>
    </message>
    <message>
        <source>Leading</source>
        <translation>Esquerda</translation>
    </message>
    <message>
        <source>Center</source>
        <translation>Centro</translation>
    </message>
    <message>
        <source>Trailing</source>
        <translation>Direita</translation>
    </message>
    <message>
        <source>Bottom leading</source>
        <translation>Inferior esquerdo</translation>
    </message>
    <message>
        <source>Bottom</source>
        <translation>Inferior</translation>
    </message>
    <message>
        <source>Bottom trailing</source>
        <translation>Inferior direito</translation>
    </message>
</context>
<context>
    <name>WorkIndicator</name>
    <message>
        <source>Working</source>
        <translation>Processando</translation>
    </message>
</context>
</TS>
