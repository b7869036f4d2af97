<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_CN" sourcelanguage="en">
<context>
    <name>Morvantile</name>
    <message>
        <source>Clipboard Image Resize</source>
        <extracomment>the dialog&apos;s title</extracomment>
        <translation>调整剪贴板图片的大小</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>确定</translation>
    </message>
    <message>
        <source>Don&apos;t Scale</source>
        <extracomment>leaves the clipboard as it is</extracomment>
        <translation>不缩放</translation>
    </message>
    <message>
        <source>New Size: </source>
        <extracomment>a size follows, such as 320 x 240</extracomment>
        <translation>新尺寸: </translation>
    </message>
    <message>
        <source>Original Size: </source>
        <extracomment>a size follows, such as 640 x 480</extracomment>
        <translation>原尺寸: </translation>
    </message>
    <message>
        <source>W</source>
        <extracomment>a segment 34 pixels wide: the width</extracomment>
        <translation>宽</translation>
    </message>
    <message>
        <source>H</source>
        <extracomment>a segment 34 pixels wide: the height</extracomment>
        <translation>高</translation>
    </message>
    <message>
        <source>%</source>
        <translation>%</translation>
    </message>
    <message>
        <source>Width</source>
        <translation>宽度</translation>
    </message>
    <message>
        <source>Height</source>
        <translation>高度</translation>
    </message>
    <message>
        <source>Percentage</source>
        <translation>百分比</translation>
    </message>
    <message>
        <source>The clipboard image will be scaled to the specified width.</source>
        <translation>剪贴板中的图片将缩放到指定的宽度。</translation>
    </message>
    <message>
        <source>The clipboard image will be scaled to the specified height.</source>
        <translation>剪贴板中的图片将缩放到指定的高度。</translation>
    </message>
    <message>
        <source>The clipboard image will be scaled by the specified percentage.</source>
        <translation>剪贴板中的图片将按指定的百分比缩放。</translation>
    </message>
    <message>
        <source>Preview</source>
        <translation>预览</translation>
    </message>
    <message>
        <source>Scale</source>
        <extracomment>the slider&apos;s name</extracomment>
        <translation>缩放</translation>
    </message>
    <message>
        <source>Scale by</source>
        <extracomment>the name of the three segments</extracomment>
        <translation>缩放依据</translation>
    </message>
    <message>
        <source>About Morvantile</source>
        <translation>关于 Morvantile</translation>
    </message>
    <message>
        <source>by</source>
        <extracomment>the author&apos;s name follows</extracomment>
        <translation>作者:</translation>
    </message>
    <message>
        <source>its developers</source>
        <extracomment>stands behind &quot;by&quot;</extracomment>
        <translation>开发团队</translation>
    </message>
    <message>
        <source>Version </source>
        <extracomment>a number follows</extracomment>
        <translation>版本 </translation>
    </message>
    <message>
        <source>%1 pixels wide</source>
        <extracomment>what the slider stands for, read out; %1 is the number</extracomment>
        <translation>宽 %1 像素</translation>
    </message>
    <message>
        <source>%1 pixels high</source>
        <extracomment>what the slider stands for, read out; %1 is the number</extracomment>
        <translation>高 %1 像素</translation>
    </message>
    <message>
        <source>%1 per cent</source>
        <extracomment>what the slider stands for, read out; %1 is the number</extracomment>
        <translation>百分之 %1</translation>
    </message>
</context>
</TS>
