<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en" sourcelanguage="en">
<context>
    <name>ReportTexts</name>
    <message numerus="yes">
        <source>The file was damaged and has been mended in memory: %n remark(s).</source>
        <translation>
            <numerusform>The file was damaged and has been mended in memory: %n remark.</numerusform>
            <numerusform>The file was damaged and has been mended in memory: %n remarks.</numerusform>
        </translation>
    </message>
</context>
</TS>
