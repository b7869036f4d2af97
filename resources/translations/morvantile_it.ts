<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="it" sourcelanguage="en">
<context>
    <name>Morvantile</name>
    <message>
        <source>Clipboard Image Resize</source>
        <extracomment>the dialog&apos;s title</extracomment>
        <translation>Ridimensiona l’immagine negli appunti</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Don&apos;t Scale</source>
        <extracomment>leaves the clipboard as it is</extracomment>
        <translation>Non modificare</translation>
    </message>
    <message>
        <source>New Size: </source>
        <extracomment>a size follows, such as 320 x 240</extracomment>
        <translation>Nuova misura: </translation>
    </message>
    <message>
        <source>Original Size: </source>
        <extracomment>a size follows, such as 640 x 480</extracomment>
        <translation>Originale: </translation>
    </message>
    <message>
        <source>W</source>
        <extracomment>a segment 34 pixels wide: the width</extracomment>
        <translation>L</translation>
    </message>
    <message>
        <source>H</source>
        <extracomment>a segment 34 pixels wide: the height</extracomment>
        <translation>A</translation>
    </message>
    <message>
        <source>%</source>
        <translation>%</translation>
    </message>
    <message>
        <source>Width</source>
        <translation>Larghezza</translation>
    </message>
    <message>
        <source>Height</source>
        <translation>Altezza</translation>
    </message>
    <message>
        <source>Percentage</source>
        <translation>Percentuale</translation>
    </message>
    <message>
        <source>The clipboard image will be scaled to the specified width.</source>
        <translation>L’immagine negli appunti sarà ridimensionata alla larghezza indicata.</translation>
    </message>
    <message>
        <source>The clipboard image will be scaled to the specified height.</source>
        <translation>L’immagine negli appunti sarà ridimensionata all’altezza indicata.</translation>
    </message>
    <message>
        <source>The clipboard image will be scaled by the specified percentage.</source>
        <translation>L’immagine negli appunti sarà ridimensionata alla percentuale indicata.</translation>
    </message>
    <message>
        <source>Preview</source>
        <translation>Anteprima</translation>
    </message>
    <message>
        <source>Scale</source>
        <extracomment>the slider&apos;s name</extracomment>
        <translation>Scala</translation>
    </message>
    <message>
        <source>Scale by</source>
        <extracomment>the name of the three segments</extracomment>
        <translation>Ridimensiona per</translation>
    </message>
    <message>
        <source>About Morvantile</source>
        <translation>Informazioni su Morvantile</translation>
    </message>
    <message>
        <source>by</source>
        <extracomment>the author&apos;s name follows</extracomment>
        <translation>di</translation>
    </message>
    <message>
        <source>its developers</source>
        <extracomment>stands behind &quot;by&quot;</extracomment>
        <translation>chi lo sviluppa</translation>
    </message>
    <message>
        <source>Version </source>
        <extracomment>a number follows</extracomment>
        <translation>Versione </translation>
    </message>
    <message>
        <source>%1 pixels wide</source>
        <extracomment>what the slider stands for, read out; %1 is the number</extracomment>
        <translation>larghezza di %1 pixel</translation>
    </message>
    <message>
        <source>%1 pixels high</source>
        <extracomment>what the slider stands for, read out; %1 is the number</extracomment>
        <translation>altezza di %1 pixel</translation>
    </message>
    <message>
        <source>%1 per cent</source>
        <extracomment>what the slider stands for, read out; %1 is the number</extracomment>
        <translation>%1 per cento</translation>
    </message>
</context>
</TS>
