<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>Morvantile</name>
    <message>
        <source>Don&apos;t Scale</source>
        <translation>Nicht verkleinern</translation>
    </message>
</context>
</TS>
