<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="fr">
<context>
    <name>AdjustImageView</name>
    <message>
        <source>Undo</source>
        <translation>Annuler la modification</translation>
    </message>
    <message>
        <source>Picture being adjusted</source>
        <translation>Image en cours d’ajustement</translation>
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
        <translation>Annuler la modification</translation>
    </message>
    <message>
        <source>Draw</source>
        <translation>Dessiner</translation>
    </message>
    <message>
        <source>Text</source>
        <translation>Texte</translation>
    </message>
    <message>
        <source>Move</source>
        <translation>Déplacer</translation>
    </message>
</context>
<context>
    <name>ChooseColorView</name>
    <message>
        <source>Colour %1</source>
        <translation>Couleur %1</translation>
    </message>
    <message>
        <source>Colours</source>
        <translation>Couleurs</translation>
    </message>
</context>
<context>
    <name>ChooseIntensityView</name>
    <message>
        <source>Intensity</source>
        <translation>Intensité</translation>
    </message>
</context>
<context>
    <name>ChooseLineWidthView</name>
    <message>
        <source>Line width</source>
        <translation>Épaisseur du trait</translation>
    </message>
</context>
<context>
    <name>CropperView</name>
    <message>
        <source>Undo</source>
        <translation>Annuler la modification</translation>
    </message>
    <message>
        <source>Rotate left</source>
        <translation>Faire pivoter à gauche</translation>
    </message>
    <message>
        <source>Rotate right</source>
        <translation>Faire pivoter à droite</translation>
    </message>
    <message>
        <source>Flip horizontally</source>
        <translation>Retourner horizontalement</translation>
    </message>
    <message>
        <source>Flip vertically</source>
        <translation>Retourner verticalement</translation>
    </message>
    <message>
        <source>Crop frame: drag an edge, a corner or the middle</source>
        <translation>Cadre de recadrage : faites glisser un bord, un coin ou le centre</translation>
    </message>
    <message>
        <source>CROP</source>
        <translation>RECADRER</translation>
    </message>
</context>
<context>
    <name>DiscardEditsView</name>
    <message>
        <source>Discard your edits?</source>
        <translation>Abandonner vos modifications ?</translation>
    </message>
    <message>
        <source>Keep editing</source>
        <translation>Continuer à modifier</translation>
    </message>
    <message>
        <source>Discard</source>
        <translation>Abandonner</translation>
    </message>
</context>
<context>
    <name>ErrorView</name>
    <message>
        <source>Sorry</source>
        <translation>Désolé</translation>
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
        <translation>Bleu</translation>
    </message>
    <message>
        <source>Green</source>
        <translation>Vert</translation>
    </message>
    <message>
        <source>Gray</source>
        <translation>Gris</translation>
    </message>
    <message>
        <source>Pink</source>
        <translation>Rose</translation>
    </message>
    <message>
        <source>Yellow</source>
        <translation>Jaune</translation>
    </message>
    <message>
        <source>Orange</source>
        <translation>Orange</translation>
    </message>
    <message>
        <source>Red</source>
        <translation>Rouge</translation>
    </message>
    <message>
        <source>Brown</source>
        <translation>Marron</translation>
    </message>
    <message>
        <source>White</source>
        <translation>Blanc</translation>
    </message>
    <message>
        <source>Original</source>
        <translation>Original</translation>
    </message>
    <message>
        <source>None</source>
        <translation>Aucun</translation>
    </message>
    <message>
        <source>Adjust #1</source>
        <translation>Réglage 1</translation>
    </message>
    <message>
        <source>Adjust #2</source>
        <translation>Réglage 2</translation>
    </message>
    <message>
        <source>Adjust #3</source>
        <translation>Réglage 3</translation>
    </message>
    <message>
        <source>Adjust #4</source>
        <translation>Réglage 4</translation>
    </message>
    <message>
        <source>Adjust #5</source>
        <translation>Réglage 5</translation>
    </message>
    <message>
        <source>Adjust #6</source>
        <translation>Réglage 6</translation>
    </message>
    <message>
        <source>Adjust #7</source>
        <translation>Réglage 7</translation>
    </message>
    <message>
        <source>Adjust #8</source>
        <translation>Réglage 8</translation>
    </message>
    <message>
        <source>Adjust #9</source>
        <translation>Réglage 9</translation>
    </message>
</context>
<context>
    <name>FiltersView</name>
    <message>
        <source>Undo</source>
        <translation>Annuler la modification</translation>
    </message>
    <message>
        <source>Picture with the chosen filter</source>
        <translation>Image avec le filtre choisi</translation>
    </message>
</context>
<context>
    <name>ImageEditorView</name>
    <message>
        <source>Close</source>
        <translation>Fermer</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>Annuler la modification</translation>
    </message>
    <message>
        <source>CONTINUE</source>
        <translation>CONTINUER</translation>
    </message>
    <message>
        <source>Picture being edited</source>
        <translation>Image en cours de modification</translation>
    </message>
    <message>
        <source>Crop</source>
        <translation>Recadrer</translation>
    </message>
    <message>
        <source>Draw</source>
        <translation>Dessiner</translation>
    </message>
    <message>
        <source>Filters</source>
        <translation>Filtres</translation>
    </message>
    <message>
        <source>Adjust</source>
        <translation>Régler</translation>
    </message>
</context>
<context>
    <name>SelectFilterView</name>
    <message>
        <source>Choices</source>
        <translation>Choix</translation>
    </message>
</context>
<context>
    <name>TextImageView</name>
    <message>
        <source>CANCEL</source>
        <translation>ANNULER</translation>
    </message>
    <message>
        <source>Add the text</source>
        <translation>Ajouter le texte</translation>
    </message>
    <message>
        <source>Add some text...</source>
        <translation>Saisissez du texte...</translation>
    </message>
    <message>
        <source>Italic</source>
        <translation>Italique</translation>
    </message>
    <message>
        <source>Bold</source>
        <translation>Gras</translation>
    </message>
    <message>
        <source>Uppercase</source>
        <translation>Majuscules</translation>
    </message>
    <message>
        <source>Text size</source>
        <translation>Taille du texte</translation>
    </message>
</context>
<context>
    <name>ToolPageBar</name>
    <message>
        <source>ACCEPT</source>
        <translation>VALIDER</translation>
    </message>
    <message>
        <source>CANCEL</source>
        <translation>ANNULER</translation>
    </message>
</context>
<context>
    <name>TransformView</name>
    <message>
        <source>Rotation</source>
        <translation>Rotation</translation>
    </message>
    <message>
        <source>Scale</source>
        <translation>Taille</translation>
    </message>
    <message>
        <source>Alignment</source>
        <translation>Alignement</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Supprimer</translation>
    </message>
    <message>
        <source>Done</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Back</source>
        <translation>Retour</translation>
    </message>
    <message>
        <source>To left</source>
        <translation>À gauche</translation>
    </message>
    <message>
        <source>To right</source>
        <translation>À droite</translation>
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
        <translation>Réduire</translation>
    </message>
    <message>
        <source>Scale up</source>
        <translation>Agrandir</translation>
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
        <translation>En haut à gauche</translation>
    </message>
    <message>
        <source>Top</source>
        <translation>En haut</translation>
    </message>
    <message>
        <source>Top trailing</source>
        <translation>En haut à droite</translation>
    </message>
    <message>
        <source>Leading</source>
        <translation>À gauche</translation>
    </message>
    <message>
        <source>Center</source>
        <translation>Au centre</translation>
    </message>
    <message>
        <source>Trailing</source>
        <translation>À droite</translation>
    </message>
    <message>
        <source>Bottom leading</source>
        <translation>En bas à gauche</translation>
    </message>
    <message>
        <source>Bottom</source>
        <translation>En bas</translation>
    </message>
    <message>
        <source>Bottom trailing</source>
        <translation>En bas à droite</translation>
    </message>
</context>
<context>
    <name>WorkIndicator</name>
    <message>
        <source>Working</source>
        <translation>Traitement en cours</translation>
    </message>
</context>
</TS>
