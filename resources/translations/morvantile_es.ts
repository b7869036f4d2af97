<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="es" sourcelanguage="en">
<context>
    <name>Morvantile</name>
    <message>
        <source>Clipboard Image Resize</source>
        <extracomment>the dialog&apos;s title</extracomment>
        <translation>Redimensionar la imagen del portapapeles</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>Aceptar</translation>
    </message>
    <message>
        <source>Don&apos;t Scale</source>
        <extracomment>leaves the clipboard as it is</extracomment>
        <translation>No escalar</translation>
    </message>
    <message>
        <source>New Size: </source>
        <extracomment>a size follows, such as 320 x 240</extracomment>
        <translation>Tamaño nuevo: </translation>
    </message>
    <message>
        <source>Original Size: </source>
        <extracomment>a size follows, such as 640 x 480</extracomment>
        <translation>Original: </translation>
    </message>
    <message>
        <source>W</source>
        <extracomment>a segment 34 pixels wide: the width</extracomment>
        <translation>An</translation>
    </message>
    <message>
        <source>H</source>
        <extracomment>a segment 34 pixels wide: the height</extracomment>
        <translation>Al</translation>
    </message>
    <message>
        <source>%</source>
        <translation>%</translation>
    </message>
    <message>
        <source>Width</source>
        <translation>Anchura</translation>
    </message>
    <message>
        <source>Height</source>
        <translation>Altura</translation>
    </message>
    <message>
        <source>Percentage</source>
        <translation>Porcentaje</translation>
    </message>
    <message>
        <source>The clipboard image will be scaled to the specified width.</source>
        <translation>La imagen del portapapeles se escalará a la anchura indicada.</translation>
    </message>
    <message>
        <source>The clipboard image will be scaled to the specified height.</source>
        <translation>La imagen del portapapeles se escalará a la altura indicada.</translation>
    </message>
    <message>
        <source>The clipboard image will be scaled by the specified percentage.</source>
        <translation>La imagen del portapapeles se escalará según el porcentaje indicado.</translation>
    </message>
    <message>
        <source>Preview</source>
        <translation>Vista previa</translation>
    </message>
    <message>
        <source>Scale</source>
        <extracomment>the slider&apos;s name</extracomment>
        <translation>Escala</translation>
    </message>
    <message>
        <source>Scale by</source>
        <extracomment>the name of the three segments</extracomment>
        <translation>Escalar por</translation>
    </message>
    <message>
        <source>About Morvantile</source>
        <translation>Acerca de Morvantile</translation>
    </message>
    <message>
        <source>by</source>
        <extracomment>the author&apos;s name follows</extracomment>
        <translation>por</translation>
    </message>
    <message>
        <source>its developers</source>
        <extracomment>stands behind &quot;by&quot;</extracomment>
        <translation>su equipo</translation>
    </message>
    <message>
        <source>Version </source>
        <extracomment>a number follows</extracomment>
        <translation>Versión </translation>
    </message>
    <message>
        <source>%1 pixels wide</source>
        <extracomment>what the slider stands for, read out; %1 is the number</extracomment>
        <translation>%1 píxeles de ancho</translation>
    </message>
    <message>
        <source>%1 pixels high</source>
        <extracomment>what the slider stands for, read out; %1 is the number</extracomment>
        <translation>%1 píxeles de alto</translation>
    </message>
    <message>
        <source>%1 per cent</source>
        <extracomment>what the slider stands for, read out; %1 is the number</extracomment>
        <translation>%1 por ciento</translation>
    </message>
</context>
</TS>
