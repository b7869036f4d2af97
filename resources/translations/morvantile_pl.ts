<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="pl" sourcelanguage="en">
<context>
    <name>Morvantile</name>
    <message>
        <source>Clipboard Image Resize</source>
        <extracomment>the dialog&apos;s title</extracomment>
        <translation>Zmiana rozmiaru obrazu ze schowka</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Don&apos;t Scale</source>
        <extracomment>leaves the clipboard as it is</extracomment>
        <translation>Nie skaluj</translation>
    </message>
    <message>
        <source>New Size: </source>
        <extracomment>a size follows, such as 320 x 240</extracomment>
        <translation>Nowy rozmiar: </translation>
    </message>
    <message>
        <source>Original Size: </source>
        <extracomment>a size follows, such as 640 x 480</extracomment>
        <translation>Oryginał: </translation>
    </message>
    <message>
        <source>W</source>
        <extracomment>a segment 34 pixels wide: the width</extracomment>
        <translation>S</translation>
    </message>
    <message>
        <source>H</source>
        <extracomment>a segment 34 pixels wide: the height</extracomment>
        <translation>W</translation>
    </message>
    <message>
        <source>%</source>
        <translation>%</translation>
    </message>
    <message>
        <source>Width</source>
        <translation>Szerokość</translation>
    </message>
    <message>
        <source>Height</source>
        <translation>Wysokość</translation>
    </message>
    <message>
        <source>Percentage</source>
        <translation>Procent</translation>
    </message>
    <message>
        <source>The clipboard image will be scaled to the specified width.</source>
        <translation>Obraz ze schowka zostanie przeskalowany do podanej szerokości.</translation>
    </message>
    <message>
        <source>The clipboard image will be scaled to the specified height.</source>
        <translation>Obraz ze schowka zostanie przeskalowany do podanej wysokości.</translation>
    </message>
    <message>
        <source>The clipboard image will be scaled by the specified percentage.</source>
        <translation>Obraz ze schowka zostanie przeskalowany do podanego procentu.</translation>
    </message>
    <message>
        <source>Preview</source>
        <translation>Podgląd</translation>
    </message>
    <message>
        <source>Scale</source>
        <extracomment>the slider&apos;s name</extracomment>
        <translation>Skala</translation>
    </message>
    <message>
        <source>Scale by</source>
        <extracomment>the name of the three segments</extracomment>
        <translation>Skaluj według</translation>
    </message>
    <message>
        <source>About Morvantile</source>
        <translation>O programie Morvantile</translation>
    </message>
    <message>
        <source>by</source>
        <extracomment>the author&apos;s name follows</extracomment>
        <translation>Autor:</translation>
    </message>
    <message>
        <source>its developers</source>
        <extracomment>stands behind &quot;by&quot;</extracomment>
        <translation>zespół</translation>
    </message>
    <message>
        <source>Version </source>
        <extracomment>a number follows</extracomment>
        <translation>Wersja </translation>
    </message>
    <message>
        <source>%1 pixels wide</source>
        <extracomment>what the slider stands for, read out; %1 is the number</extracomment>
        <translation>szerokość w pikselach: %1</translation>
    </message>
    <message>
        <source>%1 pixels high</source>
        <extracomment>what the slider stands for, read out; %1 is the number</extracomment>
        <translation>wysokość w pikselach: %1</translation>
    </message>
    <message>
        <source>%1 per cent</source>
        <extracomment>what the slider stands for, read out; %1 is the number</extracomment>
        <translation>procent: %1</translation>
    </message>
</context>
</TS>
