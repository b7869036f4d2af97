<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>Morvantile</name>
    <message>
        <source>Clipboard Image Resize</source>
        <extracomment>the dialog&apos;s title</extracomment>
        <translation>Bild der Zwischenablage skalieren</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Don&apos;t Scale</source>
        <extracomment>leaves the clipboard as it is</extracomment>
        <translation>Nicht ändern</translation>
    </message>
    <message>
        <source>New Size: </source>
        <extracomment>a size follows, such as 320 x 240</extracomment>
        <translation>Neue Größe: </translation>
    </message>
    <message>
        <source>Original Size: </source>
        <extracomment>a size follows, such as 640 x 480</extracomment>
        <translation>Originalgröße: </translation>
    </message>
    <message>
        <source>W</source>
        <extracomment>a segment 34 pixels wide: the width</extracomment>
        <translation>B</translation>
    </message>
    <message>
        <source>H</source>
        <extracomment>a segment 34 pixels wide: the height</extracomment>
        <translation>H</translation>
    </message>
    <message>
        <source>%</source>
        <translation>%</translation>
    </message>
    <message>
        <source>Width</source>
        <translation>Breite</translation>
    </message>
    <message>
        <source>Height</source>
        <translation>Höhe</translation>
    </message>
    <message>
        <source>Percentage</source>
        <translation>Prozent</translation>
    </message>
    <message>
        <source>The clipboard image will be scaled to the specified width.</source>
        <translation>Das Bild in der Zwischenablage erhält die angegebene Breite.</translation>
    </message>
    <message>
        <source>The clipboard image will be scaled to the specified height.</source>
        <translation>Das Bild in der Zwischenablage erhält die angegebene Höhe.</translation>
    </message>
    <message>
        <source>The clipboard image will be scaled by the specified percentage.</source>
        <translation>Das Bild in der Zwischenablage wird auf den angegebenen Prozentsatz skaliert.</translation>
    </message>
    <message>
        <source>Preview</source>
        <translation>Vorschau</translation>
    </message>
    <message>
        <source>Scale</source>
        <extracomment>the slider&apos;s name</extracomment>
        <translation>Skalierung</translation>
    </message>
    <message>
        <source>Scale by</source>
        <extracomment>the name of the three segments</extracomment>
        <translation>Skalieren nach</translation>
    </message>
    <message>
        <source>About Morvantile</source>
        <translation>Über Morvantile</translation>
    </message>
    <message>
        <source>by</source>
        <extracomment>the author&apos;s name follows</extracomment>
        <translation>von</translation>
    </message>
    <message>
        <source>its developers</source>
        <extracomment>stands behind &quot;by&quot;</extracomment>
        <translation>den Entwicklern</translation>
    </message>
    <message>
        <source>Version </source>
        <extracomment>a number follows</extracomment>
        <translation>Version </translation>
    </message>
    <message>
        <source>%1 pixels wide</source>
        <extracomment>what the slider stands for, read out; %1 is the number</extracomment>
        <translation>%1 Pixel breit</translation>
    </message>
    <message>
        <source>%1 pixels high</source>
        <extracomment>what the slider stands for, read out; %1 is the number</extracomment>
        <translation>%1 Pixel hoch</translation>
    </message>
    <message>
        <source>%1 per cent</source>
        <extracomment>what the slider stands for, read out; %1 is the number</extracomment>
        <translation>%1 Prozent</translation>
    </message>
</context>
</TS>
