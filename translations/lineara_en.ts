<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en" sourcelanguage="en">
<context>
    <name>CellTexts</name>
    <message numerus="yes">
        <source>%n further fact(s) from the imported file</source>
        <translation>
            <numerusform>%n further fact from the imported file</numerusform>
            <numerusform>%n further facts from the imported file</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>ChecksTexts</name>
    <message numerus="yes">
        <source>%n contradiction(s) among the dates</source>
        <translation>
            <numerusform>%n contradiction among the dates</numerusform>
            <numerusform>%n contradictions among the dates</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>ImportTexts</name>
    <message numerus="yes">
        <source>%n bytes are no characters of %1; they were replaced.</source>
        <translation>
            <numerusform>%n byte is no character of %1; it was replaced.</numerusform>
            <numerusform>%n bytes are no characters of %1; they were replaced.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>PosterMarks</name>
    <message numerus="yes">
        <source>%n sheet(s) make up this picture, as shown below.</source>
        <translation>
            <numerusform>%n sheet makes up this picture, as shown below.</numerusform>
            <numerusform>%n sheets make up this picture, as shown below.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>PrintDialog</name>
    <message numerus="yes">
        <source>%n page(s) in %1 × %2.</source>
        <translation>
            <numerusform>%n page in %1 × %2.</numerusform>
            <numerusform>%n pages in %1 × %2.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>RelationshipWords</name>
    <message numerus="yes">
        <source>%n step(s)</source>
        <translation>
            <numerusform>%n step</numerusform>
            <numerusform>%n steps</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>related by %n more line(s)</source>
        <translation>
            <numerusform>related by %n more line</numerusform>
            <numerusform>related by %n more lines</numerusform>
        </translation>
    </message>
</context>
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
<context>
    <name>TreeView</name>
    <message numerus="yes">
        <source>%n person(s) highlighted, everybody else dimmed</source>
        <translation>
            <numerusform>%n person highlighted, everybody else dimmed</numerusform>
            <numerusform>%n persons highlighted, everybody else dimmed</numerusform>
        </translation>
    </message>
</context>
</TS>
