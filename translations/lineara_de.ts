<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>AppDelegate</name>
    <message>
        <source>Open a Family</source>
        <translation>Familie öffnen</translation>
    </message>
    <message>
        <source>Import a Family</source>
        <translation>Familie importieren</translation>
    </message>
    <message>
        <source>unknown folder</source>
        <translation>unbekannter Ordner</translation>
    </message>
    <message>
        <source>Families (*.lineara *.ged *.GED *.gdz *.GDZ);;Family files (*.lineara);;GEDCOM files (*.ged *.GED *.gdz *.GDZ);;All files (*)</source>
        <translation>Familien (*.lineara *.ged *.GED *.gdz *.GDZ);;Familiendateien (*.lineara);;GEDCOM-Dateien (*.ged *.GED *.gdz *.GDZ);;Alle Dateien (*)</translation>
    </message>
    <message>
        <source>GEDCOM files (*.ged *.GED *.gdz *.GDZ);;All files (*)</source>
        <translation>GEDCOM-Dateien (*.ged *.GED *.gdz *.GDZ);;Alle Dateien (*)</translation>
    </message>
</context>
<context>
    <name>BringUpToDate</name>
    <message>
        <source>“%1” is not brought up to date, because no copy of it can be kept in “%2”: %3</source>
        <translation>„%1“ wird nicht auf den neuen Stand gebracht, weil in „%2“ keine Kopie davon aufbewahrt werden kann: %3</translation>
    </message>
    <message>
        <source>“%1” was written by a newer version of Lineara (data model %2); this version reads data models up to %3. The file was not changed.</source>
        <translation>„%1“ wurde von einer neueren Version von Lineara geschrieben (Datenmodell %2); diese Version liest Datenmodelle bis %3. Die Datei wurde nicht verändert.</translation>
    </message>
    <message>
        <source>“%1” can&apos;t be brought up to date: this version of Lineara knows no way from data model %2 to %3.</source>
        <translation>„%1“ lässt sich nicht auf den neuen Stand bringen: Diese Version von Lineara kennt keinen Weg vom Datenmodell %2 zu %3.</translation>
    </message>
    <message>
        <source>%1 The file as it was is kept in “%2”.</source>
        <translation>%1 Die Datei, wie sie war, wird unter „%2“ aufbewahrt.</translation>
    </message>
    <message>
        <source>“%1” can&apos;t be opened, because no copy of it can be made: %2</source>
        <translation>„%1“ lässt sich nicht öffnen, weil keine Kopie davon angelegt werden kann: %2</translation>
    </message>
    <message>
        <source>no copy of it as it was can be kept in “%1”: %2</source>
        <translation>in „%1“ kann keine Kopie davon, wie sie war, aufbewahrt werden: %2</translation>
    </message>
</context>
<context>
    <name>CellTexts</name>
    <message>
        <source>Remove Picture</source>
        <translation>Bild entfernen</translation>
    </message>
    <message>
        <source>Birth</source>
        <translation>Geburt</translation>
    </message>
    <message>
        <source>Edit Birth</source>
        <translation>Geburt bearbeiten</translation>
    </message>
    <message>
        <source>Death</source>
        <translation>Tod</translation>
    </message>
    <message>
        <source>Edit Death</source>
        <translation>Tod bearbeiten</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>Notes</source>
        <translation>Notizen</translation>
    </message>
    <message>
        <source>Set Pic</source>
        <translation>Bild setzen</translation>
    </message>
    <message>
        <source>Picture</source>
        <translation>Bild</translation>
    </message>
    <message>
        <source>Edit Name</source>
        <translation>Namen bearbeiten</translation>
    </message>
    <message>
        <source>Edit Notes</source>
        <translation>Notizen bearbeiten</translation>
    </message>
    <message numerus="yes">
        <source>%n further fact(s) from the imported file</source>
        <translation>
            <numerusform>%n weitere Angabe aus der importierten Datei</numerusform>
            <numerusform>%n weitere Angaben aus der importierten Datei</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>ChecksTexts</name>
    <message>
        <source>No contradictions among the dates that are known.</source>
        <translation>Keine Widersprüche in den bekannten Daten.</translation>
    </message>
    <message numerus="yes">
        <source>%n contradiction(s) among the dates</source>
        <translation>
            <numerusform>%n Widerspruch in den Daten</numerusform>
            <numerusform>%n Widersprüche in den Daten</numerusform>
        </translation>
    </message>
    <message>
        <source>Person</source>
        <translation>Person</translation>
    </message>
    <message>
        <source>Contradiction</source>
        <translation>Widerspruch</translation>
    </message>
    <message>
        <source>Checks</source>
        <translation>Prüfungen</translation>
    </message>
    <message>
        <source>Looking for contradictions…</source>
        <translation>Widersprüche werden gesucht …</translation>
    </message>
</context>
<context>
    <name>Closing</name>
    <message>
        <source>Do you want to save the changes to “%1”?</source>
        <translation>Die Änderungen an „%1“ speichern?</translation>
    </message>
    <message>
        <source>They are lost otherwise.</source>
        <translation>Sonst gehen sie verloren.</translation>
    </message>
</context>
<context>
    <name>ConnectorView</name>
    <message>
        <source>Click and drag to connect to partner</source>
        <translation>Klicken und ziehen, um mit einem Partner zu verbinden</translation>
    </message>
    <message>
        <source>Click and drag to connect to child</source>
        <translation>Klicken und ziehen, um mit einem Kind zu verbinden</translation>
    </message>
</context>
<context>
    <name>DateEntry</name>
    <message>
        <source>There is no month %1.</source>
        <translation>Es gibt keinen Monat %1.</translation>
    </message>
    <message>
        <source>There is no day %1.</source>
        <translation>Es gibt keinen Tag %1.</translation>
    </message>
    <message>
        <source>%1 %2 had no day %3.</source>
        <translation>Im %1 %2 gab es keinen Tag %3.</translation>
    </message>
    <message>
        <source>%1 has no day %2.</source>
        <translation>Im %1 gibt es keinen Tag %2.</translation>
    </message>
    <message>
        <source>“%1” is no day.</source>
        <translation>„%1“ ist kein Tag.</translation>
    </message>
    <message>
        <source>“%1” is no month.</source>
        <translation>„%1“ ist kein Monat.</translation>
    </message>
    <message>
        <source>“%1” is no year.</source>
        <translation>„%1“ ist kein Jahr.</translation>
    </message>
    <message>
        <source>The day needs its month.</source>
        <translation>Zum Tag fehlt der Monat.</translation>
    </message>
    <message>
        <source>The month needs its year.</source>
        <translation>Zum Monat fehlt das Jahr.</translation>
    </message>
</context>
<context>
    <name>DateFormatter</name>
    <message>
        <source>“%1” is no date.</source>
        <translation>„%1“ ist kein Datum.</translation>
    </message>
</context>
<context>
    <name>Document</name>
    <message>
        <source>Link as Partner of</source>
        <translation>Verbinden als Partner von</translation>
    </message>
    <message>
        <source>Link as Child of</source>
        <translation>Verbinden als Kind von</translation>
    </message>
    <message>
        <source>“%1” can&apos;t be opened: it is open in another window already.</source>
        <translation>„%1“ lässt sich nicht öffnen: Es ist schon in einem anderen Fenster offen.</translation>
    </message>
</context>
<context>
    <name>DocumentController</name>
    <message>
        <source>“%1” is being worked on in another window of Lineara.</source>
        <translation>An „%1“ wird in einem anderen Fenster von Lineara gearbeitet.</translation>
    </message>
    <message>
        <source>A copy can be opened as it is in the file now. It is saved to a file of its own.</source>
        <translation>Eine Kopie lässt sich öffnen, so wie die Datei jetzt ist. Sie wird in einer eigenen Datei gespeichert.</translation>
    </message>
    <message>
        <source>Open a Copy</source>
        <translation>Kopie öffnen</translation>
    </message>
    <message>
        <source>The unsaved changes of “%1” are gone: they are open in another window, or were removed.</source>
        <translation>Die nicht gespeicherten Änderungen von „%1“ sind fort: Sie sind in einem anderen Fenster offen oder wurden entfernt.</translation>
    </message>
    <message>
        <source>“%1” was closed with unsaved changes, which are kept.</source>
        <translation>„%1“ wurde mit nicht gespeicherten Änderungen geschlossen; sie sind aufgehoben.</translation>
    </message>
    <message>
        <source>Open Them</source>
        <translation>Änderungen öffnen</translation>
    </message>
    <message>
        <source>Can&apos;t Open the Family</source>
        <translation>Die Familie lässt sich nicht öffnen</translation>
    </message>
    <message>
        <source>A copy that is up to date can be opened. It is saved to a file of its own.</source>
        <translation>Eine Kopie auf dem neuen Stand lässt sich öffnen. Sie wird in einer eigenen Datei gespeichert.</translation>
    </message>
    <message>
        <source>Unsaved changes of “%1” were kept on %2.</source>
        <translation>Nicht gespeicherte Änderungen von „%1“ wurden am %2 aufbewahrt.</translation>
    </message>
    <message>
        <source>Can&apos;t Import the Family</source>
        <translation>Die Familie lässt sich nicht importieren</translation>
    </message>
    <message>
        <source>The file stays as it is. Families come in from GEDCOM files (.ged, .gdz), which the program that has the family can export.</source>
        <translation>Die Datei bleibt, wie sie ist. Familien kommen aus GEDCOM-Dateien (.ged, .gdz) herein, die das Programm, das die Familie hat, exportieren kann.</translation>
    </message>
</context>
<context>
    <name>DocumentSaving</name>
    <message>
        <source>“%1” can&apos;t be saved: the file is open in another window. Close it there, or save under another name.</source>
        <translation>„%1“ lässt sich nicht speichern: Die Datei ist in einem anderen Fenster offen. Dort schließen oder unter einem anderen Namen speichern.</translation>
    </message>
    <message>
        <source>Unsaved changes of “%1” would be lost in a crash, so save soon. No copy of them can be kept: %2</source>
        <translation>Nicht gespeicherte Änderungen von „%1“ gingen bei einem Absturz verloren, also bitte bald speichern. Eine Kopie davon lässt sich nicht aufbewahren: %2</translation>
    </message>
    <message>
        <source>%1 (copy)</source>
        <translation>%1 (Kopie)</translation>
    </message>
</context>
<context>
    <name>DocumentWindow</name>
    <message>
        <source>&amp;File</source>
        <translation>&amp;Datei</translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <translation>&amp;Bearbeiten</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>&amp;Hilfe</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>&amp;Ansicht</translation>
    </message>
    <message>
        <source>Zoom &amp;In</source>
        <translation>&amp;Vergrößern</translation>
    </message>
    <message>
        <source>Zoom &amp;Out</source>
        <translation>Ver&amp;kleinern</translation>
    </message>
    <message>
        <source>&amp;Actual Size</source>
        <translation>&amp;Originalgröße</translation>
    </message>
    <message>
        <source>&amp;Fit</source>
        <translation>&amp;Alles zeigen</translation>
    </message>
    <message>
        <source>F&amp;ull Screen</source>
        <translation>Voll&amp;bild</translation>
    </message>
    <message>
        <source>Edit</source>
        <translation>Bearbeiten</translation>
    </message>
    <message>
        <source>Details…</source>
        <translation>Einzelheiten…</translation>
    </message>
    <message>
        <source>&amp;Window</source>
        <translation>&amp;Fenster</translation>
    </message>
    <message>
        <source>&amp;Person</source>
        <translation>&amp;Person</translation>
    </message>
    <message>
        <source>F&amp;amily</source>
        <translation>Fa&amp;milie</translation>
    </message>
</context>
<context>
    <name>EditTexts</name>
    <message>
        <source>&amp;Remove Person</source>
        <translation>Person &amp;entfernen</translation>
    </message>
    <message>
        <source>&amp;Remove Partner Link</source>
        <translation>Partnerverbindung &amp;entfernen</translation>
    </message>
    <message>
        <source>&amp;Remove Child Link</source>
        <translation>Kindverbindung &amp;entfernen</translation>
    </message>
    <message>
        <source>&amp;Remove</source>
        <translation>&amp;Entfernen</translation>
    </message>
    <message>
        <source>&amp;Undo</source>
        <translation>&amp;Rückgängig</translation>
    </message>
    <message>
        <source>Re&amp;do</source>
        <translation>&amp;Wiederholen</translation>
    </message>
    <message>
        <source>&amp;Add Person</source>
        <translation>Person &amp;hinzufügen</translation>
    </message>
    <message>
        <source>Edit &amp;Name</source>
        <translation>&amp;Namen bearbeiten</translation>
    </message>
    <message>
        <source>Set Pic&amp;ture…</source>
        <translation>&amp;Bild setzen…</translation>
    </message>
    <message>
        <source>Re&amp;move Picture</source>
        <translation>Bi&amp;ld entfernen</translation>
    </message>
    <message>
        <source>Link as &amp;Partner of…</source>
        <translation>Verbinden als &amp;Partner von…</translation>
    </message>
    <message>
        <source>Link as &amp;Child of…</source>
        <translation>Verbinden als &amp;Kind von…</translation>
    </message>
    <message>
        <source>&amp;Find…</source>
        <translation>&amp;Suchen…</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>Rückgängig</translation>
    </message>
    <message>
        <source>Redo</source>
        <translation>Wiederholen</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>Entfernen</translation>
    </message>
    <message>
        <source>&amp;Undo %1</source>
        <translation>&amp;Rückgängig: %1</translation>
    </message>
    <message>
        <source>Re&amp;do %1</source>
        <translation>&amp;Wiederholen: %1</translation>
    </message>
    <message>
        <source>&amp;Tidy Up</source>
        <translation>&amp;Aufräumen</translation>
    </message>
    <message>
        <source>Tidy Up An&amp;cestors</source>
        <translation>&amp;Vorfahren aufräumen</translation>
    </message>
    <message>
        <source>Tidy Up De&amp;scendants</source>
        <translation>&amp;Nachkommen aufräumen</translation>
    </message>
</context>
<context>
    <name>EngineWait</name>
    <message>
        <source>Working out the rows… Finishing now may leave some partners in different rows.</source>
        <translation>Die Reihen werden bestimmt… Wer nicht wartet, findet vielleicht manche Partner in verschiedenen Reihen.</translation>
    </message>
    <message>
        <source>Finish Now</source>
        <translation>Nicht warten</translation>
    </message>
</context>
<context>
    <name>ExportDialog</name>
    <message>
        <source>Export Picture</source>
        <translation>Bild exportieren</translation>
    </message>
    <message>
        <source>&amp;Export…</source>
        <translation>&amp;Exportieren …</translation>
    </message>
    <message>
        <source>PDF – for printing and sending</source>
        <translation>PDF – zum Drucken und Verschicken</translation>
    </message>
    <message>
        <source>SVG – for web pages and drawing programs</source>
        <translation>SVG – für Webseiten und Zeichenprogramme</translation>
    </message>
    <message>
        <source>PNG – a picture of pixels</source>
        <translation>PNG – ein Bild aus Pixeln</translation>
    </message>
    <message>
        <source>&amp;Kind:</source>
        <translation>A&amp;rt:</translation>
    </message>
    <message>
        <source>As large as the family</source>
        <translation>So groß wie die Familie</translation>
    </message>
    <message>
        <source>&amp;Page:</source>
        <translation>&amp;Seite:</translation>
    </message>
    <message>
        <source>Width in pixels</source>
        <translation>Breite in Pixeln</translation>
    </message>
    <message>
        <source>Height in pixels</source>
        <translation>Höhe in Pixeln</translation>
    </message>
    <message>
        <source>Si&amp;ze in pixels:</source>
        <translation>&amp;Größe in Pixeln:</translation>
    </message>
    <message>
        <source>T&amp;ransparent ground</source>
        <translation>&amp;Durchsichtiger Grund</translation>
    </message>
    <message>
        <source>One page of %1 × %2 cm.</source>
        <translation>Eine Seite von %1 × %2 cm.</translation>
    </message>
    <message>
        <source>One page, at %L1 % of the full size.</source>
        <translation>Eine Seite, %L1 % der vollen Größe.</translation>
    </message>
    <message>
        <source>%L1 million pixels.</source>
        <translation>%L1 Millionen Pixel.</translation>
    </message>
    <message>
        <source>Sharp at any size; %L1 × %L2 pixels as shown at first.</source>
        <translation>In jeder Größe scharf; zuerst %L1 × %L2 Pixel groß gezeigt.</translation>
    </message>
</context>
<context>
    <name>Exporting</name>
    <message>
        <source>GEDCOM 5.5.1 (*.ged)</source>
        <translation>GEDCOM 5.5.1 (*.ged)</translation>
    </message>
    <message>
        <source>GEDCOM 7.0 (*.ged)</source>
        <translation>GEDCOM 7.0 (*.ged)</translation>
    </message>
    <message>
        <source>GEDCOM 7.0 with pictures (*.gdz)</source>
        <translation>GEDCOM 7.0 mit Bildern (*.gdz)</translation>
    </message>
    <message>
        <source>Exporting “%1”…</source>
        <translation>„%1“ wird exportiert…</translation>
    </message>
    <message>
        <source>Export the Family</source>
        <translation>Familie exportieren</translation>
    </message>
    <message>
        <source>This is not in the exported file.</source>
        <translation>Das ist nicht in der exportierten Datei.</translation>
    </message>
    <message>
        <source>“%1” was exported, but not everything is in it.</source>
        <translation>„%1“ wurde exportiert, aber nicht alles ist darin.</translation>
    </message>
    <message>
        <source>Details…</source>
        <translation>Einzelheiten…</translation>
    </message>
    <message>
        <source>“%1” was exported.</source>
        <translation>„%1“ wurde exportiert.</translation>
    </message>
    <message>
        <source>Show Folder</source>
        <translation>Ordner zeigen</translation>
    </message>
    <message>
        <source>“%1” is a name for a family file. Choose one that ends in .ged or .gdz.</source>
        <translation>„%1“ ist der Name einer Familiendatei. Wählen Sie einen, der auf .ged oder .gdz endet.</translation>
    </message>
</context>
<context>
    <name>FamilyInsight</name>
    <message>
        <source>Relationship to</source>
        <translation>Verwandtschaft mit</translation>
    </message>
</context>
<context>
    <name>FamilyTasks</name>
    <message>
        <source>The unsaved changes of “%1” can&apos;t be opened. The copy that holds them stays until it is discarded in the start window. What is wrong with it: %2</source>
        <translation>Die nicht gespeicherten Änderungen von „%1“ lassen sich nicht öffnen. Die Kopie, in der sie stehen, bleibt, bis sie im Startfenster verworfen wird. Was damit nicht stimmt: %2</translation>
    </message>
</context>
<context>
    <name>FamilyTexts</name>
    <message>
        <source>&amp;Relationship…</source>
        <translation>&amp;Verwandtschaft…</translation>
    </message>
    <message>
        <source>Highlight &amp;Ancestors</source>
        <translation>V&amp;orfahren hervorheben</translation>
    </message>
    <message>
        <source>Highlight &amp;Descendants</source>
        <translation>&amp;Nachkommen hervorheben</translation>
    </message>
    <message>
        <source>&amp;Show All</source>
        <translation>&amp;Alle zeigen</translation>
    </message>
    <message>
        <source>&amp;Checks</source>
        <translation>&amp;Prüfungen</translation>
    </message>
</context>
<context>
    <name>FieldTexts</name>
    <message>
        <source>Choose from a calendar</source>
        <translation>Aus einem Kalender wählen</translation>
    </message>
    <message>
        <source>%1 calendar</source>
        <translation>%1: Kalender</translation>
    </message>
    <message>
        <source>Day</source>
        <translation>Tag</translation>
    </message>
    <message>
        <source>Month</source>
        <translation>Monat</translation>
    </message>
    <message>
        <source>Year</source>
        <translation>Jahr</translation>
    </message>
    <message>
        <source>%1 day</source>
        <comment>day of birth or death</comment>
        <translation>%1: Tag</translation>
    </message>
    <message>
        <source>%1 month</source>
        <translation>%1: Monat</translation>
    </message>
    <message>
        <source>%1 year</source>
        <translation>%1: Jahr</translation>
    </message>
</context>
<context>
    <name>FindingWords</name>
    <message>
        <source>%1 BC</source>
        <translation>%1 vor Christus</translation>
    </message>
    <message>
        <source>%1 %2 %3</source>
        <comment>day, month and year</comment>
        <translation>%1. %2 %3</translation>
    </message>
    <message>
        <source>Born %1, died %2: born after the death</source>
        <translation>Geboren %1, gestorben %2: nach dem Tod geboren</translation>
    </message>
    <message>
        <source>Born %1, died %2: over 120 years old</source>
        <translation>Geboren %1, gestorben %2: über 120 Jahre alt</translation>
    </message>
    <message>
        <source>Born %1, before the parent %2 (born %3)</source>
        <translation>Geboren %1, vor dem Elternteil %2 (geboren %3)</translation>
    </message>
    <message>
        <source>Born %1, when the parent %2 (born %3) was under 12</source>
        <translation>Geboren %1, als der Elternteil %2 (geboren %3) unter 12 war</translation>
    </message>
    <message>
        <source>Born %1, when the parent %2 (born %3) was over 80</source>
        <translation>Geboren %1, als der Elternteil %2 (geboren %3) über 80 war</translation>
    </message>
    <message>
        <source>Born %1, less than nine months after the sibling %2 (born %3)</source>
        <translation>Geboren %1, weniger als neun Monate nach dem Geschwister %2 (geboren %3)</translation>
    </message>
    <message>
        <source>Born %1, before the mother %2 (born %3)</source>
        <translation>Geboren %1, vor der Mutter %2 (geboren %3)</translation>
    </message>
    <message>
        <source>Born %1, before the father %2 (born %3)</source>
        <translation>Geboren %1, vor dem Vater %2 (geboren %3)</translation>
    </message>
    <message>
        <source>Born %1, when the mother %2 (born %3) was under 12</source>
        <translation>Geboren %1, als die Mutter %2 (geboren %3) unter 12 war</translation>
    </message>
    <message>
        <source>Born %1, when the father %2 (born %3) was under 12</source>
        <translation>Geboren %1, als der Vater %2 (geboren %3) unter 12 war</translation>
    </message>
    <message>
        <source>Born %1, when the mother %2 (born %3) was over 80</source>
        <translation>Geboren %1, als die Mutter %2 (geboren %3) über 80 war</translation>
    </message>
    <message>
        <source>Born %1, when the father %2 (born %3) was over 80</source>
        <translation>Geboren %1, als der Vater %2 (geboren %3) über 80 war</translation>
    </message>
    <message>
        <source>Born %1, after the death of the mother %2 (died %3)</source>
        <translation>Geboren %1, nach dem Tod der Mutter %2 (gestorben %3)</translation>
    </message>
    <message>
        <source>Born %1, less than nine months after the sister %2 (born %3)</source>
        <translation>Geboren %1, weniger als neun Monate nach der Schwester %2 (geboren %3)</translation>
    </message>
    <message>
        <source>Born %1, less than nine months after the brother %2 (born %3)</source>
        <translation>Geboren %1, weniger als neun Monate nach dem Bruder %2 (geboren %3)</translation>
    </message>
    <message>
        <source>Born %1, more than ten months after the death of the parent %2 (died %3)</source>
        <translation>Geboren %1, über zehn Monate nach dem Tod des Elternteils %2 (gestorben %3)</translation>
    </message>
    <message>
        <source>Born %1, more than ten months after the death of the father %2 (died %3)</source>
        <translation>Geboren %1, über zehn Monate nach dem Tod des Vaters %2 (gestorben %3)</translation>
    </message>
</context>
<context>
    <name>FurtherFacts</name>
    <message>
        <source>Fact</source>
        <translation>Angabe</translation>
    </message>
    <message>
        <source>In the Imported File</source>
        <translation>In der importierten Datei</translation>
    </message>
    <message>
        <source>a person without a name</source>
        <translation>einer Person ohne Namen</translation>
    </message>
    <message>
        <source>Further Facts</source>
        <translation>Weitere Angaben</translation>
    </message>
    <message>
        <source>What “%1” tells of %2, in line %3 and below and in the records of families, beyond what is shown in the list. It is kept, and given back when the family is exported, as far as it still holds.</source>
        <translation>Was „%1“ ab Zeile %3 und in den Datensätzen der Familien von %2 erzählt und die Liste nicht zeigt. Es bleibt erhalten und kommt, soweit es noch gilt, beim Exportieren der Familie wieder heraus.</translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation>&amp;Kopieren</translation>
    </message>
    <message>
        <source>The Selected Fact</source>
        <translation>Die ausgewählte Angabe</translation>
    </message>
    <message>
        <source>… and %1 more characters. Copying the fact from the list takes them all.</source>
        <translation>… und %1 weitere Zeichen. Wer die Angabe in der Liste kopiert, erhält alle.</translation>
    </message>
</context>
<context>
    <name>HelpTexts</name>
    <message>
        <source>No program of this computer could be asked to show “%1”.</source>
        <translation>Kein Programm dieses Rechners kann „%1“ zeigen.</translation>
    </message>
</context>
<context>
    <name>ImportTexts</name>
    <message>
        <source>it does not start with a level</source>
        <translation>am Anfang steht keine Ebene</translation>
    </message>
    <message>
        <source>its cross-reference has no closing @</source>
        <translation>dem Querverweis fehlt das schließende @</translation>
    </message>
    <message>
        <source>it has no tag</source>
        <translation>das Schlüsselwort fehlt</translation>
    </message>
    <message>
        <source>the file is empty.</source>
        <translation>Die Datei ist leer.</translation>
    </message>
    <message>
        <source>%1 can&apos;t be a partner of the same person</source>
        <translation>%1 kann nicht Partner derselben Person sein</translation>
    </message>
    <message>
        <source>one family can have %1 spouses at most</source>
        <translation>eine Familie kann höchstens %1 Ehepartner haben</translation>
    </message>
    <message>
        <source>the family names no parent for %1</source>
        <translation>die Familie nennt keinen Elternteil für %1</translation>
    </message>
    <message>
        <source>spouse</source>
        <translation>Ehepartner</translation>
    </message>
    <message>
        <source>child</source>
        <translation>Kind</translation>
    </message>
    <message>
        <source>the family of line %1 does not name %2 as a %3</source>
        <translation>die Familie der Zeile %1 nennt %2 nicht als %3</translation>
    </message>
    <message>
        <source>%1 can&apos;t be a parent of the same person</source>
        <translation>%1 kann nicht Elternteil derselben Person sein</translation>
    </message>
    <message>
        <source>%1 would be a third parent of %2</source>
        <translation>%1 wäre ein dritter Elternteil von %2</translation>
    </message>
    <message>
        <source>%1 as a parent of %2 would be a descendant of %2</source>
        <translation>%1 als Elternteil von %2 wäre ein Nachkomme von %2</translation>
    </message>
    <message>
        <source>it has more than 512 MB.</source>
        <translation>Sie hat mehr als 512 MB.</translation>
    </message>
    <message>
        <source>the notes that persons of this file share are too long in all</source>
        <translation>die Notizen, die sich Personen dieser Datei teilen, sind insgesamt zu lang</translation>
    </message>
    <message>
        <source>day %1</source>
        <translation>Tag %1</translation>
    </message>
    <message>
        <source>month %1</source>
        <translation>Monat %1</translation>
    </message>
    <message>
        <source>year %1</source>
        <translation>Jahr %1</translation>
    </message>
    <message>
        <source>it is empty</source>
        <translation>der Eintrag ist leer</translation>
    </message>
    <message>
        <source>was taken as %1</source>
        <translation>wurde übernommen als %1</translation>
    </message>
    <message>
        <source>it is counted in another calendar</source>
        <translation>das Datum folgt einem anderen Kalender</translation>
    </message>
    <message>
        <source>it is not understood as a date</source>
        <translation>als Datum nicht verstanden</translation>
    </message>
    <message>
        <source>has no cross-reference, so that no family can name this person</source>
        <translation>hat keinen Querverweis, also kann keine Familie diese Person nennen</translation>
    </message>
    <message>
        <source>the person of line %1</source>
        <translation>die Person der Zeile %1</translation>
    </message>
    <message>
        <source>it does not point at a record</source>
        <translation>der Eintrag verweist auf keinen Datensatz</translation>
    </message>
    <message>
        <source>it points at nobody</source>
        <translation>der Eintrag verweist auf niemanden</translation>
    </message>
    <message>
        <source>it points at a record that is not in the file</source>
        <translation>der Eintrag verweist auf einen Datensatz, der nicht in der Datei steht</translation>
    </message>
    <message>
        <source>it points at a record of another kind</source>
        <translation>der Eintrag verweist auf einen Datensatz anderer Art</translation>
    </message>
    <message>
        <source>%1 was not taken: it belongs to line %2, which was not taken</source>
        <translation>%1 wurde nicht übernommen: gehört zu Zeile %2, die nicht übernommen wurde</translation>
    </message>
    <message>
        <source>%1 could not be read: %2</source>
        <translation>%1 war nicht lesbar: %2</translation>
    </message>
    <message>
        <source>%1 was not taken: its level skips at least one</source>
        <translation>%1 wurde nicht übernommen: die Ebene überspringt mindestens eine</translation>
    </message>
    <message>
        <source>%1 is defined by line %2 already; what points at it means the record there</source>
        <translation>%1 ist schon in Zeile %2 bestimmt; was darauf verweist, meint den Datensatz dort</translation>
    </message>
    <message>
        <source>“%1” can&apos;t be imported: %2</source>
        <translation>„%1“ lässt sich nicht importieren: %2</translation>
    </message>
    <message>
        <source>it is not a GEDCOM file.</source>
        <translation>Das ist keine GEDCOM-Datei.</translation>
    </message>
    <message>
        <source>importing it was cancelled.</source>
        <translation>Das Importieren wurde abgebrochen.</translation>
    </message>
    <message>
        <source>line %1: %2</source>
        <translation>Zeile %1: %2</translation>
    </message>
    <message>
        <source>and %1 more notes of the same kinds</source>
        <translation>und %1 weitere Bemerkungen gleicher Art</translation>
    </message>
    <message>
        <source>%1 was not taken: %2</source>
        <translation>%1 wurde nicht übernommen: %2</translation>
    </message>
    <message>
        <source>held characters that can&apos;t be written to a file; they were replaced</source>
        <translation>enthielt Zeichen, die in keiner Datei stehen können; sie wurden ersetzt</translation>
    </message>
    <message>
        <source>%1 was refused: %2</source>
        <translation>%1 wurde abgelehnt: %2</translation>
    </message>
    <message>
        <source>parents of themselves</source>
        <translation>Eltern ihrer selbst</translation>
    </message>
    <message>
        <source>third parents</source>
        <translation>dritte Eltern</translation>
    </message>
    <message>
        <source>parents among the own descendants</source>
        <translation>Eltern unter den eigenen Nachkommen</translation>
    </message>
    <message>
        <source>Unreadable line</source>
        <translation>Unlesbare Zeile</translation>
    </message>
    <message>
        <source>The file declares the character set %1, but is in %2 and was read so.</source>
        <translation>Die Datei gibt den Zeichensatz %1 an, ist aber in %2 und wurde so gelesen.</translation>
    </message>
    <message numerus="yes">
        <source>%n bytes are no characters of %1; they were replaced.</source>
        <translation>
            <numerusform>%n Byte ist kein Zeichen von %1; es wurde ersetzt.</numerusform>
            <numerusform>%n Bytes sind keine Zeichen von %1; sie wurden ersetzt.</numerusform>
        </translation>
    </message>
    <message>
        <source>partners of themselves</source>
        <translation>Partner ihrer selbst</translation>
    </message>
    <message>
        <source>it is a ZIP archive that can&apos;t be read.</source>
        <translation>Sie ist ein ZIP-Archiv, das nicht gelesen werden kann.</translation>
    </message>
    <message>
        <source>the archive is broken there</source>
        <translation>das Archiv dort beschädigt ist</translation>
    </message>
    <message>
        <source>it holds nothing but zeros, as files do that were not saved to their end.</source>
        <translation>Sie enthält nichts als Nullen, wie Dateien, die nicht zu Ende gespeichert wurden.</translation>
    </message>
    <message>
        <source>it is a picture, not a GEDCOM file.</source>
        <translation>Sie ist ein Bild und keine GEDCOM-Datei.</translation>
    </message>
    <message>
        <source>it is a PDF document, not a GEDCOM file.</source>
        <translation>Sie ist ein PDF-Dokument und keine GEDCOM-Datei.</translation>
    </message>
    <message>
        <source>it is compressed; unpack it and import what comes out.</source>
        <translation>Sie ist gepackt; entpacken Sie sie und importieren Sie, was darin ist.</translation>
    </message>
    <message>
        <source>it is a web page, not a GEDCOM file.</source>
        <translation>Sie ist eine Webseite und keine GEDCOM-Datei.</translation>
    </message>
    <message>
        <source>it is an XML file, not a GEDCOM file.</source>
        <translation>Sie ist eine XML-Datei und keine GEDCOM-Datei.</translation>
    </message>
    <message>
        <source>it is not a file.</source>
        <translation>Das ist keine Datei.</translation>
    </message>
    <message>
        <source>of no stated version</source>
        <translation>ohne Angabe der Version</translation>
    </message>
    <message>
        <source>of version %1</source>
        <translation>der Version %1</translation>
    </message>
    <message>
        <source>A GEDCOM file %1, read as %2.</source>
        <translation>Eine GEDCOM-Datei %1, gelesen als %2.</translation>
    </message>
    <message>
        <source>It says that it is in %1.</source>
        <translation>Sie gibt %1 an.</translation>
    </message>
    <message>
        <source>What came in</source>
        <translation>Was übernommen wurde</translation>
    </message>
    <message>
        <source>Persons</source>
        <translation>Personen</translation>
    </message>
    <message>
        <source>Families</source>
        <translation>Familien</translation>
    </message>
    <message>
        <source>Links between partners</source>
        <translation>Verbindungen zwischen Partnern</translation>
    </message>
    <message>
        <source>Links between parents and children</source>
        <translation>Verbindungen zwischen Eltern und Kindern</translation>
    </message>
    <message>
        <source>Pictures</source>
        <translation>Bilder</translation>
    </message>
    <message>
        <source>Lines taken into the family, of %1</source>
        <translation>In die Familie übernommene Zeilen, von %1</translation>
    </message>
    <message>
        <source>What was kept beside the family</source>
        <translation>Was neben der Familie aufbewahrt wurde</translation>
    </message>
    <message>
        <source>Records, each as it stands in the file</source>
        <translation>Datensätze, jeder wie er in der Datei steht</translation>
    </message>
    <message>
        <source>Lines that a person has no field for</source>
        <translation>Zeilen, für die eine Person kein Feld hat</translation>
    </message>
    <message>
        <source>  %1: %2, the first in line %3</source>
        <translation>  %1: %2, die erste in Zeile %3</translation>
    </message>
    <message>
        <source>What was refused</source>
        <translation>Was abgelehnt wurde</translation>
    </message>
    <message>
        <source>Links that no family can have</source>
        <translation>Verbindungen, die es in keiner Familie geben kann</translation>
    </message>
    <message>
        <source>Lines that say nothing that could be taken</source>
        <translation>Zeilen, die nichts sagen, was übernommen werden könnte</translation>
    </message>
    <message>
        <source>Lines that can&apos;t be read</source>
        <translation>Zeilen, die nicht gelesen werden können</translation>
    </message>
    <message>
        <source>Line by line</source>
        <translation>Zeile für Zeile</translation>
    </message>
    <message>
        <source>other lines</source>
        <translation>andere Zeilen</translation>
    </message>
    <message>
        <source>the file is not there</source>
        <translation>die Datei nicht da ist</translation>
    </message>
    <message>
        <source>the file has more than 64 MB</source>
        <translation>die Datei mehr als 64 MB hat</translation>
    </message>
    <message>
        <source>it is on the web</source>
        <translation>es im Netz liegt</translation>
    </message>
    <message>
        <source>the pictures are too large in all</source>
        <translation>die Bilder zusammen zu groß sind</translation>
    </message>
    <message>
        <source>the file is no picture of a known kind</source>
        <translation>die Datei kein Bild bekannter Art ist</translation>
    </message>
    <message>
        <source>the picture %1 can&apos;t be taken, as %2</source>
        <translation>das Bild %1 kann nicht übernommen werden, da %2</translation>
    </message>
    <message>
        <source>The export was stopped.</source>
        <translation>Das Exportieren wurde abgebrochen.</translation>
    </message>
    <message>
        <source>“%1” can&apos;t be exported: %2</source>
        <translation>„%1“ kann nicht exportiert werden: %2</translation>
    </message>
    <message>
        <source>the imported records</source>
        <translation>die importierten Datensätze</translation>
    </message>
    <message>
        <source>The imported records of this family can&apos;t be told apart any more. Save the family, and export what you imported from its own file.</source>
        <translation>Die importierten Datensätze dieser Familie lassen sich nicht mehr auseinanderhalten. Speichern Sie die Familie und exportieren Sie das Importierte aus seiner eigenen Datei.</translation>
    </message>
    <message>
        <source>The archive can&apos;t be made: there is not enough memory.</source>
        <translation>Das Archiv kann nicht erzeugt werden: Der Speicher reicht nicht aus.</translation>
    </message>
    <message>
        <source>Pictures that only an export with pictures (.gdz) takes along: %1</source>
        <translation>Bilder, die nur ein Export mit Bildern (.gdz) mitnimmt: %1</translation>
    </message>
    <message>
        <source>Files that the genealogy names and that are not there: %1</source>
        <translation>Dateien, die die Genealogie nennt und die nicht da sind: %1</translation>
    </message>
    <message>
        <source>What stays in the archive alone</source>
        <translation>Was nur im Archiv bleibt</translation>
    </message>
    <message>
        <source>Files that Lineara does not keep, and does not export</source>
        <translation>Dateien, die Lineara nicht aufbewahrt und nicht exportiert</translation>
    </message>
    <message>
        <source>this archive holds no family: there is no gedcom.ged in it.</source>
        <translation>Dieses Archiv enthält keine Familie: In ihm liegt keine Datei gedcom.ged.</translation>
    </message>
    <message>
        <source>this archive holds several GEDCOM files, none of which is called gedcom.ged; unpack it and import them one by one.</source>
        <translation>Dieses Archiv enthält mehrere GEDCOM-Dateien, von denen keine gedcom.ged heißt; entpacken Sie es und importieren Sie sie einzeln.</translation>
    </message>
    <message>
        <source>nothing can point at this record, because %1 stands for nobody</source>
        <translation>auf diesen Datensatz kann nichts zeigen, weil %1 für niemanden steht</translation>
    </message>
    <message>
        <source>Parent (not linked)</source>
        <translation>Elternteil (nicht verbunden)</translation>
    </message>
    <message>
        <source>Partner (not linked)</source>
        <translation>Partner (nicht verbunden)</translation>
    </message>
    <message>
        <source>Child (not linked)</source>
        <translation>Kind (nicht verbunden)</translation>
    </message>
    <message>
        <source>not in the file</source>
        <translation>nicht in der Datei</translation>
    </message>
    <message>
        <source>Family of unknown parents</source>
        <translation>Familie unbekannter Eltern</translation>
    </message>
    <message>
        <source>Family of %1</source>
        <translation>Familie von %1</translation>
    </message>
    <message>
        <source>Family of %1 and %2</source>
        <translation>Familie von %1 und %2</translation>
    </message>
    <message>
        <source>Family without a partner</source>
        <translation>Familie ohne Partner</translation>
    </message>
    <message>
        <source>Family with %1</source>
        <translation>Familie mit %1</translation>
    </message>
    <message>
        <source>Family with %1 and %2</source>
        <translation>Familie mit %1 und %2</translation>
    </message>
    <message>
        <source>held bytes that are no UTF-8; they were read as Windows-1252</source>
        <translation>enthielt Bytes, die kein UTF-8 sind; sie wurden als Windows-1252 gelesen</translation>
    </message>
    <message>
        <source>a person without a name</source>
        <comment>in “Family with %1” and “Family of %1”</comment>
        <translation>einer Person ohne Namen</translation>
    </message>
    <message>
        <source>Source without a title</source>
        <translation>Quelle ohne Titel</translation>
    </message>
    <message>
        <source>Note without a text</source>
        <translation>Notiz ohne Text</translation>
    </message>
    <message>
        <source>Picture or recording without a file</source>
        <translation>Bild oder Aufnahme ohne Datei</translation>
    </message>
    <message>
        <source>Repository without a name</source>
        <translation>Archiv ohne Namen</translation>
    </message>
    <message>
        <source>Submitter without a name</source>
        <translation>Einsender ohne Namen</translation>
    </message>
    <message>
        <source>a person without a name</source>
        <translation>eine Person ohne Namen</translation>
    </message>
    <message>
        <source>Family with an unknown partner</source>
        <translation>Familie mit unbekanntem Partner</translation>
    </message>
</context>
<context>
    <name>KinWords</name>
    <message>
        <source>%1st</source>
        <comment>an ordinal number</comment>
        <translation>%1</translation>
    </message>
    <message>
        <source>%1nd</source>
        <comment>an ordinal number</comment>
        <translation>%1</translation>
    </message>
    <message>
        <source>%1rd</source>
        <comment>an ordinal number</comment>
        <translation>%1</translation>
    </message>
    <message>
        <source>%1th</source>
        <comment>an ordinal number</comment>
        <translation>%1</translation>
    </message>
    <message>
        <source>first</source>
        <comment>degree of a cousin</comment>
        <translation>1</translation>
    </message>
    <message>
        <source>second</source>
        <comment>degree of a cousin</comment>
        <translation>2</translation>
    </message>
    <message>
        <source>third</source>
        <comment>degree of a cousin</comment>
        <translation>3</translation>
    </message>
    <message>
        <source>parent</source>
        <translation>Elternteil</translation>
    </message>
    <message>
        <source>grandparent</source>
        <translation>Großelternteil</translation>
    </message>
    <message>
        <source>great-grandparent</source>
        <translation>Urgroßelternteil</translation>
    </message>
    <message>
        <source>great-great-grandparent</source>
        <translation>Ururgroßelternteil</translation>
    </message>
    <message>
        <source>%1 great-grandparent</source>
        <translation>%1-fach-Urgroßelternteil</translation>
    </message>
    <message>
        <source>child</source>
        <translation>Kind</translation>
    </message>
    <message>
        <source>grandchild</source>
        <translation>Enkelkind</translation>
    </message>
    <message>
        <source>great-grandchild</source>
        <translation>Urenkelkind</translation>
    </message>
    <message>
        <source>great-great-grandchild</source>
        <translation>Ururenkelkind</translation>
    </message>
    <message>
        <source>%1 great-grandchild</source>
        <translation>%1-fach-Urenkelkind</translation>
    </message>
    <message>
        <source>aunt or uncle</source>
        <translation>Tante oder Onkel</translation>
    </message>
    <message>
        <source>great-aunt or great-uncle</source>
        <translation>Großtante oder Großonkel</translation>
    </message>
    <message>
        <source>great-great-aunt or great-great-uncle</source>
        <translation>Urgroßtante oder Urgroßonkel</translation>
    </message>
    <message>
        <source>%1 great-aunt or great-uncle</source>
        <translation>%1-fach-Großtante oder -Großonkel</translation>
    </message>
    <message>
        <source>niece or nephew</source>
        <translation>Nichte oder Neffe</translation>
    </message>
    <message>
        <source>great-niece or great-nephew</source>
        <translation>Großnichte oder Großneffe</translation>
    </message>
    <message>
        <source>great-great-niece or great-great-nephew</source>
        <translation>Urgroßnichte oder Urgroßneffe</translation>
    </message>
    <message>
        <source>%1 great-niece or great-nephew</source>
        <translation>%1-fach-Großnichte oder -Großneffe</translation>
    </message>
    <message>
        <source>%1 cousin once removed</source>
        <comment>of an older generation</comment>
        <translation>Tante oder Onkel %1. Grades</translation>
    </message>
    <message>
        <source>%1 cousin once removed</source>
        <comment>of a younger generation</comment>
        <translation>Nichte oder Neffe %1. Grades</translation>
    </message>
    <message>
        <source>%1 cousin twice removed</source>
        <comment>of an older generation</comment>
        <translation>Großtante oder Großonkel %1. Grades</translation>
    </message>
    <message>
        <source>%1 cousin twice removed</source>
        <comment>of a younger generation</comment>
        <translation>Großnichte oder Großneffe %1. Grades</translation>
    </message>
    <message>
        <source>%1 cousin three times removed</source>
        <comment>of an older generation</comment>
        <translation>Urgroßtante oder Urgroßonkel %1. Grades</translation>
    </message>
    <message>
        <source>%1 cousin three times removed</source>
        <comment>of a younger generation</comment>
        <translation>Urgroßnichte oder Urgroßneffe %1. Grades</translation>
    </message>
    <message>
        <source>%1 cousin %2 times removed</source>
        <comment>of an older generation</comment>
        <translation>Tante oder Onkel %1. Grades, %2 Generationen höher</translation>
    </message>
    <message>
        <source>%1 cousin %2 times removed</source>
        <comment>of a younger generation</comment>
        <translation>Nichte oder Neffe %1. Grades, %2 Generationen tiefer</translation>
    </message>
    <message>
        <source>%1 cousin</source>
        <translation>Cousine oder Cousin %1. Grades</translation>
    </message>
    <message>
        <source>0</source>
        <comment>what the degree of a cousin grows by where generations differ: 0, or 1</comment>
        <translation>1</translation>
    </message>
    <message>
        <source>half %1</source>
        <translation>%1 (halbbürtig)</translation>
    </message>
    <message>
        <source>half-sibling</source>
        <translation>Halbgeschwister</translation>
    </message>
    <message>
        <source>sibling</source>
        <translation>Geschwister</translation>
    </message>
    <message>
        <source>partner of an %1</source>
        <translation>Partner oder Partnerin von %1</translation>
    </message>
    <message>
        <source>partner of a %1</source>
        <translation>Partner oder Partnerin von %1</translation>
    </message>
    <message>
        <source>parent-in-law</source>
        <translation>Schwiegerelternteil</translation>
    </message>
    <message>
        <source>stepchild</source>
        <translation>Stiefkind</translation>
    </message>
    <message>
        <source>sibling-in-law</source>
        <translation>Schwägerin oder Schwager</translation>
    </message>
    <message>
        <source>%1 of the partner</source>
        <translation>%1 des Partners oder der Partnerin</translation>
    </message>
    <message>
        <source>stepparent</source>
        <translation>Stiefelternteil</translation>
    </message>
    <message>
        <source>child-in-law</source>
        <translation>Schwiegerkind</translation>
    </message>
    <message>
        <source>%1 by marriage</source>
        <translation>%1 (angeheiratet)</translation>
    </message>
    <message>
        <source>partner</source>
        <translation>Partner oder Partnerin</translation>
    </message>
    <message>
        <source>step-sibling</source>
        <translation>Stiefgeschwister</translation>
    </message>
    <message>
        <source>mother</source>
        <translation>Mutter</translation>
    </message>
    <message>
        <source>father</source>
        <translation>Vater</translation>
    </message>
    <message>
        <source>grandmother</source>
        <translation>Großmutter</translation>
    </message>
    <message>
        <source>grandfather</source>
        <translation>Großvater</translation>
    </message>
    <message>
        <source>great-grandmother</source>
        <translation>Urgroßmutter</translation>
    </message>
    <message>
        <source>great-grandfather</source>
        <translation>Urgroßvater</translation>
    </message>
    <message>
        <source>great-great-grandmother</source>
        <translation>Ururgroßmutter</translation>
    </message>
    <message>
        <source>great-great-grandfather</source>
        <translation>Ururgroßvater</translation>
    </message>
    <message>
        <source>%1 great-grandmother</source>
        <translation>%1-fach-Urgroßmutter</translation>
    </message>
    <message>
        <source>%1 great-grandfather</source>
        <translation>%1-fach-Urgroßvater</translation>
    </message>
    <message>
        <source>daughter</source>
        <translation>Tochter</translation>
    </message>
    <message>
        <source>son</source>
        <translation>Sohn</translation>
    </message>
    <message>
        <source>granddaughter</source>
        <translation>Enkelin</translation>
    </message>
    <message>
        <source>grandson</source>
        <translation>Enkel</translation>
    </message>
    <message>
        <source>great-granddaughter</source>
        <translation>Urenkelin</translation>
    </message>
    <message>
        <source>great-grandson</source>
        <translation>Urenkel</translation>
    </message>
    <message>
        <source>great-great-granddaughter</source>
        <translation>Ururenkelin</translation>
    </message>
    <message>
        <source>great-great-grandson</source>
        <translation>Ururenkel</translation>
    </message>
    <message>
        <source>%1 great-granddaughter</source>
        <translation>%1-fach-Urenkelin</translation>
    </message>
    <message>
        <source>%1 great-grandson</source>
        <translation>%1-fach-Urenkel</translation>
    </message>
    <message>
        <source>aunt</source>
        <translation>Tante</translation>
    </message>
    <message>
        <source>uncle</source>
        <translation>Onkel</translation>
    </message>
    <message>
        <source>great-aunt</source>
        <translation>Großtante</translation>
    </message>
    <message>
        <source>great-uncle</source>
        <translation>Großonkel</translation>
    </message>
    <message>
        <source>great-great-aunt</source>
        <translation>Urgroßtante</translation>
    </message>
    <message>
        <source>great-great-uncle</source>
        <translation>Urgroßonkel</translation>
    </message>
    <message>
        <source>%1 great-aunt</source>
        <translation>%1-fach-Großtante</translation>
    </message>
    <message>
        <source>%1 great-uncle</source>
        <translation>%1-fach-Großonkel</translation>
    </message>
    <message>
        <source>niece</source>
        <translation>Nichte</translation>
    </message>
    <message>
        <source>nephew</source>
        <translation>Neffe</translation>
    </message>
    <message>
        <source>great-niece</source>
        <translation>Großnichte</translation>
    </message>
    <message>
        <source>great-nephew</source>
        <translation>Großneffe</translation>
    </message>
    <message>
        <source>great-great-niece</source>
        <translation>Urgroßnichte</translation>
    </message>
    <message>
        <source>great-great-nephew</source>
        <translation>Urgroßneffe</translation>
    </message>
    <message>
        <source>%1 great-niece</source>
        <translation>%1-fach-Großnichte</translation>
    </message>
    <message>
        <source>%1 great-nephew</source>
        <translation>%1-fach-Großneffe</translation>
    </message>
    <message>
        <source>%1 cousin</source>
        <comment>a woman</comment>
        <translation>Cousine %1. Grades</translation>
    </message>
    <message>
        <source>%1 cousin</source>
        <comment>a man</comment>
        <translation>Cousin %1. Grades</translation>
    </message>
    <message>
        <source>%1 cousin once removed</source>
        <comment>a woman of an older generation</comment>
        <translation>Tante %1. Grades</translation>
    </message>
    <message>
        <source>%1 cousin once removed</source>
        <comment>a man of an older generation</comment>
        <translation>Onkel %1. Grades</translation>
    </message>
    <message>
        <source>%1 cousin twice removed</source>
        <comment>a woman of an older generation</comment>
        <translation>Großtante %1. Grades</translation>
    </message>
    <message>
        <source>%1 cousin twice removed</source>
        <comment>a man of an older generation</comment>
        <translation>Großonkel %1. Grades</translation>
    </message>
    <message>
        <source>%1 cousin three times removed</source>
        <comment>a woman of an older generation</comment>
        <translation>Urgroßtante %1. Grades</translation>
    </message>
    <message>
        <source>%1 cousin three times removed</source>
        <comment>a man of an older generation</comment>
        <translation>Urgroßonkel %1. Grades</translation>
    </message>
    <message>
        <source>%1 cousin %2 times removed</source>
        <comment>a woman of an older generation</comment>
        <translation>Tante %1. Grades, %2 Generationen höher</translation>
    </message>
    <message>
        <source>%1 cousin %2 times removed</source>
        <comment>a man of an older generation</comment>
        <translation>Onkel %1. Grades, %2 Generationen höher</translation>
    </message>
    <message>
        <source>%1 cousin once removed</source>
        <comment>a woman of a younger generation</comment>
        <translation>Nichte %1. Grades</translation>
    </message>
    <message>
        <source>%1 cousin once removed</source>
        <comment>a man of a younger generation</comment>
        <translation>Neffe %1. Grades</translation>
    </message>
    <message>
        <source>%1 cousin twice removed</source>
        <comment>a woman of a younger generation</comment>
        <translation>Großnichte %1. Grades</translation>
    </message>
    <message>
        <source>%1 cousin twice removed</source>
        <comment>a man of a younger generation</comment>
        <translation>Großneffe %1. Grades</translation>
    </message>
    <message>
        <source>%1 cousin three times removed</source>
        <comment>a woman of a younger generation</comment>
        <translation>Urgroßnichte %1. Grades</translation>
    </message>
    <message>
        <source>%1 cousin three times removed</source>
        <comment>a man of a younger generation</comment>
        <translation>Urgroßneffe %1. Grades</translation>
    </message>
    <message>
        <source>%1 cousin %2 times removed</source>
        <comment>a woman of a younger generation</comment>
        <translation>Nichte %1. Grades, %2 Generationen tiefer</translation>
    </message>
    <message>
        <source>%1 cousin %2 times removed</source>
        <comment>a man of a younger generation</comment>
        <translation>Neffe %1. Grades, %2 Generationen tiefer</translation>
    </message>
    <message>
        <source>sister</source>
        <translation>Schwester</translation>
    </message>
    <message>
        <source>brother</source>
        <translation>Bruder</translation>
    </message>
    <message>
        <source>half-sister</source>
        <translation>Halbschwester</translation>
    </message>
    <message>
        <source>half-brother</source>
        <translation>Halbbruder</translation>
    </message>
    <message>
        <source>wife</source>
        <translation>Ehefrau</translation>
    </message>
    <message>
        <source>husband</source>
        <translation>Ehemann</translation>
    </message>
    <message>
        <source>mother-in-law</source>
        <translation>Schwiegermutter</translation>
    </message>
    <message>
        <source>father-in-law</source>
        <translation>Schwiegervater</translation>
    </message>
    <message>
        <source>daughter-in-law</source>
        <translation>Schwiegertochter</translation>
    </message>
    <message>
        <source>son-in-law</source>
        <translation>Schwiegersohn</translation>
    </message>
    <message>
        <source>sister-in-law</source>
        <translation>Schwägerin</translation>
    </message>
    <message>
        <source>brother-in-law</source>
        <translation>Schwager</translation>
    </message>
    <message>
        <source>stepmother</source>
        <translation>Stiefmutter</translation>
    </message>
    <message>
        <source>stepfather</source>
        <translation>Stiefvater</translation>
    </message>
    <message>
        <source>stepdaughter</source>
        <translation>Stieftochter</translation>
    </message>
    <message>
        <source>stepson</source>
        <translation>Stiefsohn</translation>
    </message>
    <message>
        <source>stepsister</source>
        <translation>Stiefschwester</translation>
    </message>
    <message>
        <source>stepbrother</source>
        <translation>Stiefbruder</translation>
    </message>
    <message>
        <source>%1 of the wife</source>
        <translation>%1 der Ehefrau</translation>
    </message>
    <message>
        <source>%1 of the husband</source>
        <translation>%1 des Ehemanns</translation>
    </message>
    <message>
        <source>wife of a %1</source>
        <translation>Ehefrau von %1</translation>
    </message>
    <message>
        <source>husband of a %1</source>
        <translation>Ehemann von %1</translation>
    </message>
    <message>
        <source>wife of an %1</source>
        <translation>Ehefrau von %1</translation>
    </message>
    <message>
        <source>husband of an %1</source>
        <translation>Ehemann von %1</translation>
    </message>
</context>
<context>
    <name>LeafInfoView</name>
    <message>
        <source>Unnamed</source>
        <translation>Ohne Namen</translation>
    </message>
</context>
<context>
    <name>Notice</name>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
</context>
<context>
    <name>OnboardingPicture</name>
    <message>
        <source>Two partners and their child, and a line that is drawn from one person to another</source>
        <translation>Zwei Partner und ihr Kind, und eine Linie, die von einer Person zur anderen gezogen wird</translation>
    </message>
</context>
<context>
    <name>OnboardingView</name>
    <message>
        <source>Add Person</source>
        <translation>Person hinzufügen</translation>
    </message>
    <message>
        <source>Import…</source>
        <translation>Importieren…</translation>
    </message>
    <message>
        <source>Or bring a family along from another program, as a GEDCOM file:</source>
        <translation>Oder eine Familie aus einem anderen Programm mitbringen, als GEDCOM-Datei:</translation>
    </message>
    <message>
        <source>This family is still empty</source>
        <translation>Diese Familie ist noch leer</translation>
    </message>
    <message>
        <source>Add the first person (%1) and type a name. Then draw lines from the round handles: to a partner, to a child. Everybody finds the right row alone.</source>
        <translation>Die erste Person hinzufügen (%1) und einen Namen tippen. Dann Linien von den runden Griffen ziehen: zu einem Partner, zu einem Kind. Alle finden von allein ihre Reihe.</translation>
    </message>
</context>
<context>
    <name>Opening</name>
    <message>
        <source>Opening “%1”…</source>
        <translation>„%1“ wird geöffnet…</translation>
    </message>
</context>
<context>
    <name>OpeningNotices</name>
    <message>
        <source>Save As…</source>
        <translation>Speichern unter…</translation>
    </message>
    <message>
        <source>This is an up-to-date copy of “%1”. The file itself is of an older version of Lineara and stays as it is: %2</source>
        <translation>Das ist eine Kopie von „%1“ auf dem neuen Stand. Die Datei selbst ist von einer älteren Version von Lineara und bleibt, wie sie ist: %2</translation>
    </message>
    <message>
        <source>“%1” is being worked on in another window of Lineara, so these unsaved changes of it can&apos;t be saved there. They become a file of their own.</source>
        <translation>An „%1“ wird in einem anderen Fenster von Lineara gearbeitet, also können diese nicht gespeicherten Änderungen nicht dort gespeichert werden. Sie kommen in eine eigene Datei.</translation>
    </message>
</context>
<context>
    <name>PaperDialog</name>
    <message>
        <source>Family</source>
        <translation>Familie</translation>
    </message>
    <message>
        <source>Show a title</source>
        <translation>Titel zeigen</translation>
    </message>
    <message>
        <source>Show a footer</source>
        <translation>Fußzeile zeigen</translation>
    </message>
    <message>
        <source>&amp;Show:</source>
        <translation>&amp;Zeigen:</translation>
    </message>
    <message>
        <source>&amp;Title:</source>
        <translation>&amp;Titel:</translation>
    </message>
    <message>
        <source>&amp;Footer:</source>
        <translation>&amp;Fußzeile:</translation>
    </message>
    <message>
        <source>Save Picture</source>
        <translation>Bild sichern</translation>
    </message>
    <message>
        <source>%1 files (%2)</source>
        <translation>%1-Dateien (%2)</translation>
    </message>
    <message>
        <source>Title</source>
        <translation>Titel</translation>
    </message>
    <message>
        <source>Footer</source>
        <translation>Fußzeile</translation>
    </message>
</context>
<context>
    <name>PaperParts</name>
    <message>
        <source>The whole family</source>
        <translation>Die ganze Familie</translation>
    </message>
    <message>
        <source>the selected person</source>
        <translation>der ausgewählten Person</translation>
    </message>
    <message>
        <source>Ancestors of %1</source>
        <translation>Vorfahren von %1</translation>
    </message>
    <message>
        <source>Descendants of %1, with their partners</source>
        <translation>Nachkommen von %1 mit ihren Partnern</translation>
    </message>
</context>
<context>
    <name>PersonCell</name>
    <message>
        <source>A date was not understood</source>
        <translation>Ein Datum wurde nicht verstanden</translation>
    </message>
</context>
<context>
    <name>PersonChooser</name>
    <message>
        <source>Without a name</source>
        <translation>Ohne Namen</translation>
    </message>
    <message>
        <source>Search name, years or notes</source>
        <translation>Name, Jahre oder Notizen suchen</translation>
    </message>
</context>
<context>
    <name>PersonList</name>
    <message>
        <source>Search persons</source>
        <translation>Personen suchen</translation>
    </message>
    <message>
        <source>Search name, years or notes</source>
        <translation>Name, Jahre oder Notizen suchen</translation>
    </message>
    <message>
        <source>No person found</source>
        <translation>Niemand gefunden</translation>
    </message>
    <message>
        <source>Without a name</source>
        <translation>Ohne Namen</translation>
    </message>
    <message>
        <source>Persons</source>
        <translation>Personen</translation>
    </message>
    <message>
        <source>Pictures (%1)</source>
        <translation>Bilder (%1)</translation>
    </message>
    <message>
        <source>Choose a Picture</source>
        <translation>Bild wählen</translation>
    </message>
    <message>
        <source>All files (*)</source>
        <translation>Alle Dateien (*)</translation>
    </message>
    <message>
        <source>Can&apos;t Set the Picture</source>
        <translation>Das Bild lässt sich nicht setzen</translation>
    </message>
    <message>
        <source>“%1” is not a picture that can be read. Choose another file, such as a PNG or JPEG picture.</source>
        <translation>„%1“ ist kein lesbares Bild. Eine andere Datei hilft, etwa ein PNG- oder JPEG-Bild.</translation>
    </message>
    <message>
        <source>Set Picture</source>
        <translation>Bild setzen</translation>
    </message>
    <message>
        <source>Remove Picture</source>
        <translation>Bild entfernen</translation>
    </message>
</context>
<context>
    <name>PictureExport</name>
    <message>
        <source>The picture needs at least one pixel on each side.</source>
        <translation>Das Bild braucht an jeder Seite mindestens ein Pixel.</translation>
    </message>
    <message>
        <source>A PNG picture of %L1 × %L2 pixels is too large: it may have %L3 on a side and %L4 million in all. Choose a smaller size, or PDF or SVG, which are sharp at any size.</source>
        <translation>Ein PNG-Bild von %L1 × %L2 Pixeln ist zu groß: Es darf an einer Seite %L3 und insgesamt %L4 Millionen haben. Wählen Sie eine kleinere Größe oder PDF oder SVG, die in jeder Größe scharf sind.</translation>
    </message>
</context>
<context>
    <name>PlacingTexts</name>
    <message>
        <source>Arranging the family…</source>
        <translation>Die Familie wird angeordnet…</translation>
    </message>
    <message>
        <source>Tidying up…</source>
        <translation>Es wird aufgeräumt…</translation>
    </message>
    <message>
        <source>Tidy Up</source>
        <translation>Aufräumen</translation>
    </message>
</context>
<context>
    <name>PosterMarks</name>
    <message numerus="yes">
        <source>%n sheet(s) make up this picture, as shown below.</source>
        <translation>
            <numerusform>%n Blatt ergibt dieses Bild, wie unten gezeigt.</numerusform>
            <numerusform>%n Blätter ergeben dieses Bild, wie unten gezeigt.</numerusform>
        </translation>
    </message>
    <message>
        <source>Cut off the left and the upper margin of each sheet along its crop marks.</source>
        <translation>Schneiden Sie von jedem Blatt den linken und den oberen Rand an den Schnittmarken ab.</translation>
    </message>
    <message>
        <source>Lay it upon its neighbours on the left and above, up to their inner marks, and glue it there.</source>
        <translation>Legen Sie es auf seine Nachbarn links und oben, bis an deren innere Marken, und kleben Sie es dort fest.</translation>
    </message>
    <message>
        <source>Print at 100 %, never fitted to the page by the printer.</source>
        <translation>Drucken Sie mit 100 %, nie vom Drucker an die Seite angepasst.</translation>
    </message>
    <message>
        <source>%1/%2 – column %3, row %4</source>
        <translation>%1/%2 – Spalte %3, Reihe %4</translation>
    </message>
    <message>
        <source>How the Sheets Lie</source>
        <translation>Wie die Blätter liegen</translation>
    </message>
</context>
<context>
    <name>PosterPlan</name>
    <message>
        <source>The margins leave no room on the paper. Choose smaller ones.</source>
        <translation>Die Ränder lassen keinen Platz auf dem Papier. Wählen Sie kleinere.</translation>
    </message>
    <message>
        <source>The overlap leaves nothing new for the next page. Choose a smaller one.</source>
        <translation>Die Überlappung lässt nichts Neues für die nächste Seite. Wählen Sie eine kleinere.</translation>
    </message>
    <message>
        <source>The size must be more than nothing.</source>
        <translation>Die Größe muss mehr als nichts sein.</translation>
    </message>
    <message>
        <source>That would be %L1 pages, more than the %L2 that can be printed. Choose a smaller size.</source>
        <translation>Das wären %L1 Seiten, mehr als die %L2, die gedruckt werden können. Wählen Sie eine kleinere Größe.</translation>
    </message>
</context>
<context>
    <name>PrintDialog</name>
    <message>
        <source> mm</source>
        <translation> mm</translation>
    </message>
    <message>
        <source>Print</source>
        <translation>Drucken</translation>
    </message>
    <message>
        <source>&amp;Print…</source>
        <translation>&amp;Drucken …</translation>
    </message>
    <message>
        <source>Save as P&amp;DF…</source>
        <translation>Als &amp;PDF sichern …</translation>
    </message>
    <message>
        <source>As the picture lies</source>
        <translation>Wie das Bild liegt</translation>
    </message>
    <message>
        <source>Portrait</source>
        <translation>Hochformat</translation>
    </message>
    <message>
        <source>Landscape</source>
        <translation>Querformat</translation>
    </message>
    <message>
        <source>P&amp;aper:</source>
        <translation>P&amp;apier:</translation>
    </message>
    <message>
        <source>&amp;Orientation:</source>
        <translation>A&amp;usrichtung:</translation>
    </message>
    <message>
        <source>&amp;Margins:</source>
        <translation>&amp;Ränder:</translation>
    </message>
    <message>
        <source>On one page</source>
        <translation>Auf einer Seite</translation>
    </message>
    <message>
        <source>Poster of a chosen size</source>
        <translation>Poster in gewählter Größe</translation>
    </message>
    <message>
        <source>Poster some pages wide</source>
        <translation>Poster, einige Seiten breit</translation>
    </message>
    <message>
        <source>Poster some pages high</source>
        <translation>Poster, einige Seiten hoch</translation>
    </message>
    <message>
        <source> %</source>
        <translation> %</translation>
    </message>
    <message>
        <source>S&amp;ize:</source>
        <translation>&amp;Größe:</translation>
    </message>
    <message>
        <source>Pa&amp;ges:</source>
        <translation>&amp;Seiten:</translation>
    </message>
    <message>
        <source>S&amp;cale:</source>
        <translation>&amp;Maßstab:</translation>
    </message>
    <message>
        <source>O&amp;verlap:</source>
        <translation>Über&amp;lappung:</translation>
    </message>
    <message>
        <source>C&amp;rop marks</source>
        <translation>S&amp;chnittmarken</translation>
    </message>
    <message>
        <source>Page &amp;numbers</source>
        <translation>Seite&amp;nzahlen</translation>
    </message>
    <message>
        <source>A sheet that shows ho&amp;w they lie</source>
        <translation>Ein &amp;Blatt, das zeigt, wie sie liegen</translation>
    </message>
    <message>
        <source>Leave out empt&amp;y pages</source>
        <translation>L&amp;eere Seiten auslassen</translation>
    </message>
    <message>
        <source>%1 × %2 cm, %3 % of the full size.</source>
        <translation>%1 × %2 cm, %3 % der vollen Größe.</translation>
    </message>
    <message>
        <source>One page.</source>
        <translation>Eine Seite.</translation>
    </message>
    <message numerus="yes">
        <source>%n page(s) in %1 × %2.</source>
        <translation>
            <numerusform>%n Seite in %1 × %2.</numerusform>
            <numerusform>%n Seiten in %1 × %2.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>PrintOutput</name>
    <message>
        <source>“%1” can’t print: it took not all pages. Is it switched on and connected?</source>
        <translation>„%1“ kann nicht drucken: Nicht alle Seiten wurden angenommen. Ist der Drucker eingeschaltet und verbunden?</translation>
    </message>
    <message>
        <source>“%1” can’t be written. Is there such a folder, with room and permission for a file?</source>
        <translation>„%1“ kann nicht geschrieben werden. Gibt es diesen Ordner, mit Platz und Erlaubnis für eine Datei?</translation>
    </message>
</context>
<context>
    <name>ProgramMenus</name>
    <message>
        <source>&amp;Clear Menu</source>
        <translation>Menü &amp;leeren</translation>
    </message>
    <message>
        <source>Open &amp;Recent</source>
        <translation>&amp;Zuletzt geöffnet</translation>
    </message>
    <message>
        <source>Do you want to open “%1” again as it is in the file?</source>
        <translation>„%1“ noch einmal öffnen, so wie es in der Datei steht?</translation>
    </message>
    <message>
        <source>Everything that was changed since it was saved is lost.</source>
        <translation>Alles, was seit dem Speichern geändert wurde, geht verloren.</translation>
    </message>
    <message>
        <source>Revert</source>
        <translation>Zurückkehren</translation>
    </message>
    <message>
        <source>&amp;Save</source>
        <translation>&amp;Speichern</translation>
    </message>
    <message>
        <source>Save &amp;As…</source>
        <translation>Speichern &amp;unter…</translation>
    </message>
    <message>
        <source>Save a Cop&amp;y…</source>
        <translation>&amp;Kopie speichern…</translation>
    </message>
    <message>
        <source>Re&amp;vert…</source>
        <translation>Zu&amp;rückkehren…</translation>
    </message>
    <message>
        <source>&amp;Minimize</source>
        <translation>&amp;Minimieren</translation>
    </message>
    <message>
        <source>&amp;Zoom</source>
        <translation>&amp;Zoomen</translation>
    </message>
    <message>
        <source>&amp;Start Window</source>
        <translation>&amp;Startfenster</translation>
    </message>
    <message>
        <source>&amp;New</source>
        <translation>&amp;Neu</translation>
    </message>
    <message>
        <source>&amp;Open…</source>
        <translation>Ö&amp;ffnen…</translation>
    </message>
    <message>
        <source>&amp;Import…</source>
        <translation>&amp;Importieren…</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>S&amp;chließen</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>&amp;Beenden</translation>
    </message>
    <message>
        <source>Lineara &amp;Help</source>
        <translation>Lineara-&amp;Hilfe</translation>
    </message>
    <message>
        <source>Send &amp;Feedback</source>
        <translation>&amp;Rückmeldung senden</translation>
    </message>
    <message>
        <source>Report a &amp;Problem</source>
        <translation>&amp;Problem melden</translation>
    </message>
    <message>
        <source>&amp;About Lineara</source>
        <translation>&amp;Über Lineara</translation>
    </message>
    <message>
        <source>&amp;Export</source>
        <translation>E&amp;xportieren</translation>
    </message>
    <message>
        <source>&amp;GEDCOM…</source>
        <translation>&amp;GEDCOM…</translation>
    </message>
    <message>
        <source>&amp;Picture…</source>
        <translation>&amp;Bild…</translation>
    </message>
    <message>
        <source>&amp;Print…</source>
        <translation>&amp;Drucken…</translation>
    </message>
</context>
<context>
    <name>ProgressiveMigration</name>
    <message>
        <source>%1 The family as brought up to date is kept in “%2”.</source>
        <translation>%1 Die Familie auf dem neuen Stand wird unter „%2“ aufbewahrt.</translation>
    </message>
    <message>
        <source>“%1” can&apos;t be brought up to date, because no temporary file can be made: %2</source>
        <translation>„%1“ lässt sich nicht auf den neuen Stand bringen, weil keine temporäre Datei angelegt werden kann: %2</translation>
    </message>
</context>
<context>
    <name>RecoveryCopy</name>
    <message>
        <source>A damaged copy</source>
        <translation>Eine beschädigte Kopie</translation>
    </message>
</context>
<context>
    <name>RelationshipWords</name>
    <message>
        <source>%1 and %2 are not connected in this family</source>
        <translation>%1 und %2 sind in dieser Familie nicht verbunden</translation>
    </message>
    <message>
        <source>%1 is connected with %2: %3</source>
        <translation>%1 ist mit %2 verbunden: %3</translation>
    </message>
    <message>
        <source>%1 is %2 of %3</source>
        <translation>%1 ist %2 von %3</translation>
    </message>
    <message>
        <source>common ancestors are %1 and %2</source>
        <translation>gemeinsame Vorfahren sind %1 und %2</translation>
    </message>
    <message>
        <source>the common ancestor is %1</source>
        <translation>gemeinsamer Vorfahre ist %1</translation>
    </message>
    <message numerus="yes">
        <source>%n step(s)</source>
        <translation>
            <numerusform>%n Schritt</numerusform>
            <numerusform>%n Schritte</numerusform>
        </translation>
    </message>
    <message>
        <source>also %1</source>
        <translation>auch %1</translation>
    </message>
    <message numerus="yes">
        <source>related by %n more line(s)</source>
        <translation>
            <numerusform>über %n weitere Linie verwandt</numerusform>
            <numerusform>über %n weitere Linien verwandt</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>ReportDialog</name>
    <message>
        <source>“%1” can&apos;t be written: %2</source>
        <translation>„%1“ kann nicht geschrieben werden: %2</translation>
    </message>
    <message>
        <source>Save the Report</source>
        <translation>Bericht speichern</translation>
    </message>
    <message>
        <source>Texts (*.txt)</source>
        <translation>Texte (*.txt)</translation>
    </message>
    <message>
        <source>What Was Read</source>
        <translation>Was gelesen wurde</translation>
    </message>
    <message>
        <source>&amp;Save…</source>
        <translation>&amp;Speichern…</translation>
    </message>
    <message>
        <source>Report.txt</source>
        <translation>Bericht.txt</translation>
    </message>
</context>
<context>
    <name>ReportTexts</name>
    <message>
        <source>Links refused: %1.</source>
        <translation>Abgelehnte Verbindungen: %1.</translation>
    </message>
    <message numerus="yes">
        <source>The file was damaged and has been mended in memory: %n remark(s).</source>
        <translation>
            <numerusform>Die Datei war beschädigt und wurde im Speicher ausgebessert: %n Bemerkung.</numerusform>
            <numerusform>Die Datei war beschädigt und wurde im Speicher ausgebessert: %n Bemerkungen.</numerusform>
        </translation>
    </message>
    <message>
        <source>Lines kept beside them: %1.</source>
        <translation>Daneben aufbewahrte Zeilen: %1.</translation>
    </message>
    <message>
        <source>Lines that can&apos;t be read: %1.</source>
        <translation>Unlesbare Zeilen: %1.</translation>
    </message>
    <message>
        <source>Files of the archive that are not kept: %1.</source>
        <translation>Dateien des Archivs, die nicht aufbewahrt werden: %1.</translation>
    </message>
    <message>
        <source>Persons taken over: %1, partner links: %2, parent links: %3.</source>
        <translation>Übernommene Personen: %1, Partnerverbindungen: %2, Elternverbindungen: %3.</translation>
    </message>
    <message>
        <source>Lines not taken: %1.</source>
        <translation>Nicht übernommene Zeilen: %1.</translation>
    </message>
</context>
<context>
    <name>Saving</name>
    <message>
        <source>The family stays open, with all its changes.</source>
        <translation>Die Familie bleibt offen, mit allen Änderungen.</translation>
    </message>
    <message>
        <source>Save As…</source>
        <translation>Speichern unter…</translation>
    </message>
    <message>
        <source>“%1” was changed by another program since it was opened here.</source>
        <translation>„%1“ wurde von einem anderen Programm geändert, seit es hier geöffnet wurde.</translation>
    </message>
    <message>
        <source>Saving overwrites what the other program wrote.</source>
        <translation>Speichern überschreibt, was das andere Programm geschrieben hat.</translation>
    </message>
    <message>
        <source>Save Anyway</source>
        <translation>Trotzdem speichern</translation>
    </message>
    <message>
        <source>Family files (*.lineara)</source>
        <translation>Familiendateien (*.lineara)</translation>
    </message>
    <message>
        <source>Save the Family</source>
        <translation>Familie speichern</translation>
    </message>
    <message>
        <source>Save a Copy of the Family</source>
        <translation>Kopie der Familie speichern</translation>
    </message>
    <message>
        <source>%1 copy</source>
        <translation>%1 Kopie</translation>
    </message>
</context>
<context>
    <name>StepNames</name>
    <message>
        <source>Add Person</source>
        <translation>Person hinzufügen</translation>
    </message>
    <message>
        <source>Remove Person</source>
        <translation>Person entfernen</translation>
    </message>
    <message>
        <source>Remove Link</source>
        <translation>Verbindung entfernen</translation>
    </message>
    <message>
        <source>Update Rows</source>
        <translation>Reihen aktualisieren</translation>
    </message>
    <message>
        <source>Edit Name</source>
        <translation>Namen bearbeiten</translation>
    </message>
</context>
<context>
    <name>StoreTexts</name>
    <message>
        <source>the folder or file does not exist.</source>
        <translation>Den Ordner oder die Datei gibt es nicht.</translation>
    </message>
    <message>
        <source>a part of the path is not a folder.</source>
        <translation>Ein Teil des Pfades ist kein Ordner.</translation>
    </message>
    <message>
        <source>permission is denied.</source>
        <translation>Die Berechtigung fehlt.</translation>
    </message>
    <message>
        <source>the disk is read-only.</source>
        <translation>Auf den Datenträger kann nicht geschrieben werden.</translation>
    </message>
    <message>
        <source>there is no space left on the disk.</source>
        <translation>Auf dem Datenträger ist kein Platz mehr.</translation>
    </message>
    <message>
        <source>your share of the disk is used up.</source>
        <translation>Der eigene Anteil am Datenträger ist aufgebraucht.</translation>
    </message>
    <message>
        <source>the file would be too large for the disk.</source>
        <translation>Die Datei wäre zu groß für den Datenträger.</translation>
    </message>
    <message>
        <source>it is a folder.</source>
        <translation>Das ist ein Ordner.</translation>
    </message>
    <message>
        <source>it is not an ordinary file.</source>
        <translation>Das ist keine gewöhnliche Datei.</translation>
    </message>
    <message>
        <source>the name is too long.</source>
        <translation>Der Name ist zu lang.</translation>
    </message>
    <message>
        <source>its symbolic links lead in a circle.</source>
        <translation>Die symbolischen Verknüpfungen führen im Kreis.</translation>
    </message>
    <message>
        <source>the disk reports an error.</source>
        <translation>Der Datenträger meldet einen Fehler.</translation>
    </message>
    <message>
        <source>“%1” can&apos;t be saved: %2</source>
        <translation>„%1“ lässt sich nicht speichern: %2</translation>
    </message>
    <message>
        <source>The next object number was in use already; it is %1 now.</source>
        <translation>Die nächste Objektnummer war schon vergeben; nun ist es %1.</translation>
    </message>
    <message>
        <source>object z%1 is there twice.</source>
        <translation>Das Objekt z%1 kommt zweimal vor.</translation>
    </message>
    <message>
        <source>“%1” can&apos;t be opened: %2</source>
        <translation>„%1“ lässt sich nicht öffnen: %2</translation>
    </message>
    <message>
        <source>“%1” (z%2)</source>
        <translation>„%1“ (z%2)</translation>
    </message>
    <message>
        <source>which is no person.</source>
        <translation>das keine Person ist.</translation>
    </message>
    <message>
        <source>which is not in the file.</source>
        <translation>das nicht in der Datei steht.</translation>
    </message>
    <message>
        <source>object z%1: relationship “%2” refers to z%3, %4</source>
        <translation>Objekt z%1: Die Beziehung „%2“ verweist auf z%3, %4</translation>
    </message>
    <message>
        <source>“databaseInfo” is missing.</source>
        <translation>„databaseInfo“ fehlt.</translation>
    </message>
    <message>
        <source>line %1: “databaseInfo” is missing at the beginning.</source>
        <translation>Zeile %1: „databaseInfo“ fehlt am Anfang.</translation>
    </message>
    <message>
        <source>stray text or a stray declaration stands between the objects.</source>
        <translation>Zwischen den Objekten steht verirrter Text oder eine verirrte Deklaration.</translation>
    </message>
    <message>
        <source>line %1: a second “databaseInfo”.</source>
        <translation>Zeile %1: ein zweites „databaseInfo“.</translation>
    </message>
    <message>
        <source>it has the data model version %1 instead of %2.</source>
        <translation>Sie hat die Datenmodellversion %1 statt %2.</translation>
    </message>
    <message>
        <source>object %1 of the file: stray text or a stray declaration stands before it.</source>
        <translation>Objekt %1 der Datei: Davor steht verirrter Text oder eine verirrte Deklaration.</translation>
    </message>
    <message>
        <source>The attributes of “databaseInfo” are left out when the file is saved.</source>
        <translation>Die Attribute von „databaseInfo“ entfallen beim Speichern.</translation>
    </message>
    <message>
        <source>Comments outside “database” and attributes of it are left out when the file is saved.</source>
        <translation>Kommentare außerhalb von „database“ und dessen Attribute entfallen beim Speichern.</translation>
    </message>
    <message>
        <source>line %1: “databaseInfo” is missing.</source>
        <translation>Zeile %1: „databaseInfo“ fehlt.</translation>
    </message>
    <message>
        <source>it has more than 2 GB, and a family file can&apos;t have more.</source>
        <translation>Sie hat mehr als 2 GB, und mehr kann eine Familiendatei nicht haben.</translation>
    </message>
    <message>
        <source>opening it was cancelled.</source>
        <translation>Das Öffnen wurde abgebrochen.</translation>
    </message>
    <message>
        <source>“%1” can&apos;t be read: %2</source>
        <translation>„%1“ lässt sich nicht lesen: %2</translation>
    </message>
    <message>
        <source>line %1: stray text in “databaseInfo”.</source>
        <translation>Zeile %1: verirrter Text in „databaseInfo“.</translation>
    </message>
    <message>
        <source>line %1: “databaseInfo” says “%2” twice.</source>
        <translation>Zeile %1: „databaseInfo“ nennt „%2“ zweimal.</translation>
    </message>
    <message>
        <source>format version</source>
        <translation>Formatversion</translation>
    </message>
    <message>
        <source>data model version</source>
        <translation>Datenmodellversion</translation>
    </message>
    <message>
        <source>“databaseInfo”: “%1” is no valid UUID.</source>
        <translation>„databaseInfo“: „%1“ ist keine gültige UUID.</translation>
    </message>
    <message>
        <source>“databaseInfo” does not say the %1.</source>
        <translation>„databaseInfo“ nennt die %1 nicht.</translation>
    </message>
    <message>
        <source>“databaseInfo”: “%1” is no %2.</source>
        <translation>„databaseInfo“: „%1“ ist keine %2.</translation>
    </message>
    <message>
        <source>it was written by a newer program: it has %1 %2, and this program knows versions up to %3.</source>
        <translation>Sie stammt von einem neueren Programm: Sie hat die %1 %2, und dieses Programm kennt Versionen bis %3.</translation>
    </message>
    <message>
        <source>it has the older data model version %1; this program reads version %2.</source>
        <translation>Sie hat die ältere Datenmodellversion %1; dieses Programm liest Version %2.</translation>
    </message>
    <message>
        <source>The next object number was missing or no number; it was worked out again.</source>
        <translation>Die nächste Objektnummer fehlte oder war keine Zahl; sie wurde neu ermittelt.</translation>
    </message>
    <message>
        <source>was listed among its own %1; that link is left out.</source>
        <translation>stand unter den eigenen „%1“; diese Verbindung entfällt.</translation>
    </message>
    <message>
        <source>listed %1 twice among its %2; the second is left out.</source>
        <translation>führte %1 zweimal unter „%2“ auf; der zweite Eintrag entfällt.</translation>
    </message>
    <message>
        <source>did not list %1 among its %2, though listed there; the link was completed.</source>
        <translation>führte %1 nicht unter „%2“ auf, obwohl es dort umgekehrt so steht; die Verbindung wurde ergänzt.</translation>
    </message>
    <message>
        <source>has two parents already; the link from %1 is left out.</source>
        <translation>hat schon zwei Elternteile; die Verbindung von %1 entfällt.</translation>
    </message>
    <message>
        <source>is an ancestor of %1 and can&apos;t be its child; that link is left out.</source>
        <translation>ist Vorfahr von %1 und kann nicht dessen Kind sein; diese Verbindung entfällt.</translation>
    </message>
    <message>
        <source>%1 stands there twice.</source>
        <translation>%1 steht dort zweimal.</translation>
    </message>
    <message>
        <source>which is of another type.</source>
        <translation>das von anderer Art ist.</translation>
    </message>
    <message>
        <source>was listed a second time, by pool z%1; that is left out.</source>
        <translation>stand ein zweites Mal im Pool z%1; dieser Eintrag entfällt.</translation>
    </message>
    <message>
        <source>was not listed by its pool z%1; the link was completed.</source>
        <translation>fehlte im eigenen Pool z%1; die Verbindung wurde ergänzt.</translation>
    </message>
    <message>
        <source>object z%1: the picture belongs to two persons.</source>
        <translation>Objekt z%1: Das Bild gehört zu zwei Personen.</translation>
    </message>
    <message>
        <source>Only one side of the link between picture z%1 and its person was there; it was completed.</source>
        <translation>Die Verbindung zwischen dem Bild z%1 und seiner Person war nur halb da; sie wurde ergänzt.</translation>
    </message>
    <message>
        <source>it holds persons without a pool, and no number is left for a new one.</source>
        <translation>Sie enthält Personen ohne Pool, und für einen neuen ist keine Nummer mehr frei.</translation>
    </message>
    <message>
        <source>The file held persons without a pool; all of them were taken into a new one.</source>
        <translation>Die Datei enthielt Personen ohne Pool; alle kamen in einen neuen.</translation>
    </message>
    <message>
        <source>“%1” can&apos;t be brought up to date: %2</source>
        <translation>„%1“ lässt sich nicht auf den neuen Stand bringen: %2</translation>
    </message>
    <message>
        <source>text stands outside its attributes.</source>
        <translation>Außerhalb der Attribute steht Text.</translation>
    </message>
    <message>
        <source>%1 of %2 is not known and is left out when the file is saved.</source>
        <translation>%1 von %2 ist unbekannt und entfällt beim Speichern.</translation>
    </message>
    <message>
        <source>attribute %1 has the type %2 instead of %3.</source>
        <translation>Das Attribut %1 hat den Typ %2 statt %3.</translation>
    </message>
    <message>
        <source>attribute %1 holds an element instead of a text.</source>
        <translation>Das Attribut %1 enthält ein Element statt eines Textes.</translation>
    </message>
    <message>
        <source>attribute %1 holds a reference (“&amp;…;”) that means nothing.</source>
        <translation>Das Attribut %1 enthält einen Verweis („&amp;…;“), der nichts bedeutet.</translation>
    </message>
    <message>
        <source>attribute %1 held characters that no text can hold; they were replaced.</source>
        <translation>Das Attribut %1 enthielt Zeichen, die in keinem Text stehen können; sie wurden ersetzt.</translation>
    </message>
    <message>
        <source>the value %1 of attribute %2 is out of range.</source>
        <translation>Der Wert %1 des Attributs %2 liegt außerhalb des Möglichen.</translation>
    </message>
    <message>
        <source>the value %1 of attribute %2 is not a whole number.</source>
        <translation>Der Wert %1 des Attributs %2 ist keine ganze Zahl.</translation>
    </message>
    <message>
        <source>attribute %1 is not valid base64.</source>
        <translation>Das Attribut %1 ist kein gültiges Base64.</translation>
    </message>
    <message>
        <source>relationship %1 has the destination %2 instead of %3.</source>
        <translation>Die Beziehung %1 hat das Ziel %2 statt %3.</translation>
    </message>
    <message>
        <source>relationship %1 refers to %2, which is no object id.</source>
        <translation>Die Beziehung %1 verweist auf %2, was keine Objektnummer ist.</translation>
    </message>
    <message>
        <source>relationship %1 refers to more than one object.</source>
        <translation>Die Beziehung %1 verweist auf mehr als ein Objekt.</translation>
    </message>
    <message>
        <source>line %1, object %2: %3</source>
        <translation>Zeile %1, Objekt %2: %3</translation>
    </message>
    <message>
        <source>Object %1: %2</source>
        <translation>Objekt %1: %2</translation>
    </message>
    <message>
        <source>%1 is no object id.</source>
        <translation>%1 ist keine Objektnummer.</translation>
    </message>
    <message>
        <source>attribute %1 has the type %2 instead of “date”.</source>
        <translation>Das Attribut %1 hat den Typ %2 statt „date“.</translation>
    </message>
    <message>
        <source>the value %1 of attribute %2 is no number of seconds.</source>
        <translation>Der Wert %1 des Attributs %2 ist keine Zahl von Sekunden.</translation>
    </message>
    <message>
        <source>The attribute “%1” of %2 persons was beyond all measure (first of %3) and is left out.</source>
        <translation>Das Attribut „%1“ von %2 Personen war über jedes Maß (zuerst bei %3) und entfällt.</translation>
    </message>
    <message>
        <source>%1 is not known and is left out when the file is saved.</source>
        <translation>%1 ist unbekannt und entfällt beim Speichern.</translation>
    </message>
    <message>
        <source>which is of another entity.</source>
        <translation>das von anderer Art ist.</translation>
    </message>
    <message>
        <source>More was mended in the same ways; the list ends here.</source>
        <translation>Weiteres wurde ebenso ausgebessert; die Liste endet hier.</translation>
    </message>
    <message>
        <source>“databaseInfo” is missing at the beginning.</source>
        <translation>„databaseInfo“ fehlt am Anfang.</translation>
    </message>
    <message>
        <source>it is empty.</source>
        <translation>Sie ist leer.</translation>
    </message>
    <message>
        <source>line 1: it is not encoded in UTF-8.</source>
        <translation>Zeile 1: Sie ist nicht in UTF-8 kodiert.</translation>
    </message>
    <message>
        <source>line %1: it holds zero bytes, so it is no text.</source>
        <translation>Zeile %1: Sie enthält Nullbytes, ist also kein Text.</translation>
    </message>
    <message>
        <source>line %1: it is not an XML file.</source>
        <translation>Zeile %1: Das ist keine XML-Datei.</translation>
    </message>
    <message>
        <source>line %1: it declares a document type, which a family file never does.</source>
        <translation>Zeile %1: Sie vereinbart einen Dokumenttyp, was eine Familiendatei nie tut.</translation>
    </message>
    <message>
        <source>line 1: it declares the encoding %1; a family file is written in UTF-8.</source>
        <translation>Zeile 1: Sie gibt die Kodierung %1 an; eine Familiendatei ist in UTF-8 geschrieben.</translation>
    </message>
    <message>
        <source>line %1: it is cut off or not well-formed XML.</source>
        <translation>Zeile %1: Sie ist abgeschnitten oder kein wohlgeformtes XML.</translation>
    </message>
    <message>
        <source>line %1: its root element is %2 instead of %3.</source>
        <translation>Zeile %1: Ihr Wurzelelement ist %2 statt %3.</translation>
    </message>
    <message>
        <source>line %1: it is cut off; the end of the family is missing.</source>
        <translation>Zeile %1: Sie ist abgeschnitten; das Ende der Familie fehlt.</translation>
    </message>
    <message>
        <source>line %1: a second root element follows the first.</source>
        <translation>Zeile %1: Auf das erste Wurzelelement folgt ein zweites.</translation>
    </message>
    <message>
        <source>line %1: text follows the end of the family.</source>
        <translation>Zeile %1: Nach dem Ende der Familie folgt Text.</translation>
    </message>
    <message>
        <source>from line %1 on: one object holds more parts than any person has.</source>
        <translation>ab Zeile %1: Ein Objekt hat mehr Teile als jede Person.</translation>
    </message>
    <message>
        <source>it needs more memory than there is.</source>
        <translation>Sie braucht mehr Speicher, als da ist.</translation>
    </message>
    <message>
        <source>line %1: it is not well-formed XML (%2).</source>
        <translation>Zeile %1: Sie ist kein wohlgeformtes XML (%2).</translation>
    </message>
    <message>
        <source>line %1: it is not encoded in UTF-8.</source>
        <translation>Zeile %1: Sie ist nicht in UTF-8 kodiert.</translation>
    </message>
    <message>
        <source>permission to write to the file is denied.</source>
        <translation>es fehlt die Berechtigung, in die Datei zu schreiben.</translation>
    </message>
    <message>
        <source>permission to write to its folder is denied.</source>
        <translation>es fehlt die Berechtigung, in ihren Ordner zu schreiben.</translation>
    </message>
    <message>
        <source>permission to read the file is denied.</source>
        <translation>es fehlt die Berechtigung, die Datei zu lesen.</translation>
    </message>
    <message>
        <source>permission to open its folder is denied.</source>
        <translation>es fehlt die Berechtigung, ihren Ordner zu öffnen.</translation>
    </message>
    <message>
        <source>object z%1: the imported record belongs to two persons.</source>
        <translation>Objekt z%1: Der importierte Datensatz gehört zu zwei Personen.</translation>
    </message>
    <message>
        <source>Only one side of the link between imported record z%1 and its person was there; it was completed.</source>
        <translation>Von der Verbindung zwischen dem importierten Datensatz z%1 und seiner Person war nur eine Seite da; sie wurde ergänzt.</translation>
    </message>
    <message>
        <source>Person z%2, who was made of imported record z%1, is not in the file any more; the record was left out.</source>
        <translation>Person z%2, die aus dem importierten Datensatz z%1 entstand, ist nicht mehr in der Datei; der Datensatz wurde weggelassen.</translation>
    </message>
</context>
<context>
    <name>StripTexts</name>
    <message>
        <source>Swap</source>
        <translation>Tauschen</translation>
    </message>
    <message>
        <source>Tell it the other way round</source>
        <translation>Andersherum sagen</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
</context>
<context>
    <name>TagTexts</name>
    <message>
        <source>Abbreviation</source>
        <translation>Abkürzung</translation>
    </message>
    <message>
        <source>Address</source>
        <translation>Adresse</translation>
    </message>
    <message>
        <source>Adoption</source>
        <translation>Adoption</translation>
    </message>
    <message>
        <source>Age</source>
        <translation>Alter</translation>
    </message>
    <message>
        <source>Agency</source>
        <translation>Behörde</translation>
    </message>
    <message>
        <source>Alias</source>
        <translation>Anderer Name</translation>
    </message>
    <message>
        <source>Annulment</source>
        <translation>Aufhebung der Ehe</translation>
    </message>
    <message>
        <source>Associate</source>
        <translation>Bekannter</translation>
    </message>
    <message>
        <source>Author</source>
        <translation>Verfasser</translation>
    </message>
    <message>
        <source>Baptism</source>
        <translation>Taufe</translation>
    </message>
    <message>
        <source>Bar mitzvah</source>
        <translation>Bar Mizwa</translation>
    </message>
    <message>
        <source>Bat mitzvah</source>
        <translation>Bat Mizwa</translation>
    </message>
    <message>
        <source>Birth</source>
        <translation>Geburt</translation>
    </message>
    <message>
        <source>Blessing</source>
        <translation>Segnung</translation>
    </message>
    <message>
        <source>Burial</source>
        <translation>Begräbnis</translation>
    </message>
    <message>
        <source>Call number</source>
        <translation>Signatur</translation>
    </message>
    <message>
        <source>Caste</source>
        <translation>Kaste</translation>
    </message>
    <message>
        <source>Cause</source>
        <translation>Ursache</translation>
    </message>
    <message>
        <source>Census</source>
        <translation>Volkszählung</translation>
    </message>
    <message>
        <source>Last change</source>
        <translation>Letzte Änderung</translation>
    </message>
    <message>
        <source>Child</source>
        <translation>Kind</translation>
    </message>
    <message>
        <source>Christening</source>
        <translation>Taufe (Kind)</translation>
    </message>
    <message>
        <source>Christening as an adult</source>
        <translation>Taufe als Erwachsener</translation>
    </message>
    <message>
        <source>City</source>
        <translation>Ort</translation>
    </message>
    <message>
        <source>Confirmation</source>
        <translation>Konfirmation</translation>
    </message>
    <message>
        <source>Cremation</source>
        <translation>Einäscherung</translation>
    </message>
    <message>
        <source>Country</source>
        <translation>Land</translation>
    </message>
    <message>
        <source>Data</source>
        <translation>Daten</translation>
    </message>
    <message>
        <source>Date</source>
        <translation>Datum</translation>
    </message>
    <message>
        <source>Death</source>
        <translation>Tod</translation>
    </message>
    <message>
        <source>Divorce</source>
        <translation>Scheidung</translation>
    </message>
    <message>
        <source>Description</source>
        <translation>Beschreibung</translation>
    </message>
    <message>
        <source>Education</source>
        <translation>Ausbildung</translation>
    </message>
    <message>
        <source>E-mail</source>
        <translation>E-Mail</translation>
    </message>
    <message>
        <source>Emigration</source>
        <translation>Auswanderung</translation>
    </message>
    <message>
        <source>Engagement</source>
        <translation>Verlobung</translation>
    </message>
    <message>
        <source>Event</source>
        <translation>Ereignis</translation>
    </message>
    <message>
        <source>Fact</source>
        <translation>Tatsache</translation>
    </message>
    <message>
        <source>Family as a child</source>
        <translation>Familie als Kind</translation>
    </message>
    <message>
        <source>Family as a partner</source>
        <translation>Familie als Partner</translation>
    </message>
    <message>
        <source>First communion</source>
        <translation>Erstkommunion</translation>
    </message>
    <message>
        <source>File</source>
        <translation>Datei</translation>
    </message>
    <message>
        <source>Format</source>
        <translation>Format</translation>
    </message>
    <message>
        <source>Given name</source>
        <translation>Vorname</translation>
    </message>
    <message>
        <source>Graduation</source>
        <translation>Abschluss</translation>
    </message>
    <message>
        <source>Husband</source>
        <translation>Ehemann</translation>
    </message>
    <message>
        <source>Identity number</source>
        <translation>Ausweisnummer</translation>
    </message>
    <message>
        <source>Immigration</source>
        <translation>Einwanderung</translation>
    </message>
    <message>
        <source>Language</source>
        <translation>Sprache</translation>
    </message>
    <message>
        <source>Map</source>
        <translation>Karte</translation>
    </message>
    <message>
        <source>Banns</source>
        <translation>Aufgebot</translation>
    </message>
    <message>
        <source>Marriage licence</source>
        <translation>Heiratserlaubnis</translation>
    </message>
    <message>
        <source>Marriage</source>
        <translation>Heirat</translation>
    </message>
    <message>
        <source>Medium</source>
        <translation>Medium</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>Nationality</source>
        <translation>Staatsangehörigkeit</translation>
    </message>
    <message>
        <source>Naturalization</source>
        <translation>Einbürgerung</translation>
    </message>
    <message>
        <source>Number of children</source>
        <translation>Zahl der Kinder</translation>
    </message>
    <message>
        <source>Nickname</source>
        <translation>Rufname</translation>
    </message>
    <message>
        <source>Number of marriages</source>
        <translation>Zahl der Ehen</translation>
    </message>
    <message>
        <source>Note</source>
        <translation>Notiz</translation>
    </message>
    <message>
        <source>Title before the name</source>
        <translation>Titel vor dem Namen</translation>
    </message>
    <message>
        <source>Addition after the name</source>
        <translation>Zusatz nach dem Namen</translation>
    </message>
    <message>
        <source>Picture or recording</source>
        <translation>Bild oder Aufnahme</translation>
    </message>
    <message>
        <source>Occupation</source>
        <translation>Beruf</translation>
    </message>
    <message>
        <source>Ordination</source>
        <translation>Ordination</translation>
    </message>
    <message>
        <source>Page</source>
        <translation>Seite</translation>
    </message>
    <message>
        <source>Relation to the parents</source>
        <translation>Verhältnis zu den Eltern</translation>
    </message>
    <message>
        <source>Telephone</source>
        <translation>Telefon</translation>
    </message>
    <message>
        <source>Place</source>
        <translation>Ort</translation>
    </message>
    <message>
        <source>Postal code</source>
        <translation>Postleitzahl</translation>
    </message>
    <message>
        <source>Probate</source>
        <translation>Testamentseröffnung</translation>
    </message>
    <message>
        <source>Property</source>
        <translation>Besitz</translation>
    </message>
    <message>
        <source>Publication</source>
        <translation>Veröffentlichung</translation>
    </message>
    <message>
        <source>Reliability</source>
        <translation>Zuverlässigkeit</translation>
    </message>
    <message>
        <source>Reference number</source>
        <translation>Kennnummer</translation>
    </message>
    <message>
        <source>Relation</source>
        <translation>Beziehung</translation>
    </message>
    <message>
        <source>Religion</source>
        <translation>Religion</translation>
    </message>
    <message>
        <source>Repository</source>
        <translation>Archiv</translation>
    </message>
    <message>
        <source>Residence</source>
        <translation>Wohnort</translation>
    </message>
    <message>
        <source>Restriction</source>
        <translation>Beschränkung</translation>
    </message>
    <message>
        <source>Retirement</source>
        <translation>Ruhestand</translation>
    </message>
    <message>
        <source>Record number</source>
        <translation>Nummer des Datensatzes</translation>
    </message>
    <message>
        <source>Role</source>
        <translation>Rolle</translation>
    </message>
    <message>
        <source>Sex</source>
        <translation>Geschlecht</translation>
    </message>
    <message>
        <source>Source</source>
        <translation>Quelle</translation>
    </message>
    <message>
        <source>Word before the surname</source>
        <translation>Wort vor dem Nachnamen</translation>
    </message>
    <message>
        <source>Social security number</source>
        <translation>Sozialversicherungsnummer</translation>
    </message>
    <message>
        <source>State</source>
        <translation>Bundesland</translation>
    </message>
    <message>
        <source>Submitter</source>
        <translation>Einsender</translation>
    </message>
    <message>
        <source>Surname</source>
        <translation>Nachname</translation>
    </message>
    <message>
        <source>Text</source>
        <translation>Text</translation>
    </message>
    <message>
        <source>Time</source>
        <translation>Zeit</translation>
    </message>
    <message>
        <source>Title</source>
        <translation>Titel</translation>
    </message>
    <message>
        <source>Kind</source>
        <translation>Art</translation>
    </message>
    <message>
        <source>Identifier</source>
        <translation>Kennung</translation>
    </message>
    <message>
        <source>Version</source>
        <translation>Version</translation>
    </message>
    <message>
        <source>Wife</source>
        <translation>Ehefrau</translation>
    </message>
    <message>
        <source>Will</source>
        <translation>Testament</translation>
    </message>
    <message>
        <source>Web page</source>
        <translation>Webseite</translation>
    </message>
    <message>
        <source>Family</source>
        <translation>Familie</translation>
    </message>
    <message>
        <source>Header</source>
        <translation>Dateikopf</translation>
    </message>
    <message>
        <source>Person</source>
        <translation>Person</translation>
    </message>
    <message>
        <source>Address line</source>
        <translation>Adresszeile</translation>
    </message>
    <message>
        <source>Interest in ancestors</source>
        <translation>Interesse an Vorfahren</translation>
    </message>
    <message>
        <source>Baptism (Latter-day Saints)</source>
        <translation>Taufe (Heilige der Letzten Tage)</translation>
    </message>
    <message>
        <source>Confirmation (Latter-day Saints)</source>
        <translation>Konfirmierung (Heilige der Letzten Tage)</translation>
    </message>
    <message>
        <source>Copyright</source>
        <translation>Urheberrecht</translation>
    </message>
    <message>
        <source>Corporation</source>
        <translation>Körperschaft</translation>
    </message>
    <message>
        <source>Record made</source>
        <translation>Datensatz angelegt</translation>
    </message>
    <message>
        <source>Part of the picture</source>
        <translation>Bildausschnitt</translation>
    </message>
    <message>
        <source>Interest in descendants</source>
        <translation>Interesse an Nachkommen</translation>
    </message>
    <message>
        <source>Divorce filed</source>
        <translation>Scheidung eingereicht</translation>
    </message>
    <message>
        <source>Endowment (Latter-day Saints)</source>
        <translation>Endowment (Heilige der Letzten Tage)</translation>
    </message>
    <message>
        <source>Outside identifier</source>
        <translation>Fremde Kennung</translation>
    </message>
    <message>
        <source>Fax</source>
        <translation>Fax</translation>
    </message>
    <message>
        <source>As it sounds</source>
        <translation>Wie es klingt</translation>
    </message>
    <message>
        <source>Initiatory (Latter-day Saints)</source>
        <translation>Vorbereitende Handlung (Heilige der Letzten Tage)</translation>
    </message>
    <message>
        <source>Latitude</source>
        <translation>Breitengrad</translation>
    </message>
    <message>
        <source>Longitude</source>
        <translation>Längengrad</translation>
    </message>
    <message>
        <source>Marriage contract</source>
        <translation>Ehevertrag</translation>
    </message>
    <message>
        <source>Marriage settlement</source>
        <translation>Ehegütervertrag</translation>
    </message>
    <message>
        <source>Did not happen</source>
        <translation>Fand nicht statt</translation>
    </message>
    <message>
        <source>In words</source>
        <translation>In Worten</translation>
    </message>
    <message>
        <source>In Latin letters</source>
        <translation>In lateinischen Buchstaben</translation>
    </message>
    <message>
        <source>Date for sorting</source>
        <translation>Datum zum Sortieren</translation>
    </message>
    <message>
        <source>Sealing to the parents (Latter-day Saints)</source>
        <translation>Siegelung an die Eltern (Heilige der Letzten Tage)</translation>
    </message>
    <message>
        <source>Sealing to a partner (Latter-day Saints)</source>
        <translation>Siegelung an den Partner (Heilige der Letzten Tage)</translation>
    </message>
    <message>
        <source>Status</source>
        <translation>Stand</translation>
    </message>
    <message>
        <source>Temple</source>
        <translation>Tempel</translation>
    </message>
    <message>
        <source>Translation</source>
        <translation>Übersetzung</translation>
    </message>
    <message>
        <source>Relation to the father</source>
        <translation>Verhältnis zum Vater</translation>
    </message>
    <message>
        <source>Relation to the mother</source>
        <translation>Verhältnis zur Mutter</translation>
    </message>
</context>
<context>
    <name>TreeView</name>
    <message>
        <source>Family tree</source>
        <translation>Stammbaum</translation>
    </message>
    <message>
        <source>Move Person</source>
        <translation>Person verschieben</translation>
    </message>
    <message>
        <source>Link Partner</source>
        <translation>Partner verbinden</translation>
    </message>
    <message>
        <source>Link Child</source>
        <translation>Kind verbinden</translation>
    </message>
    <message>
        <source>Highlighted</source>
        <translation>Hervorgehoben</translation>
    </message>
    <message>
        <source>Dimmed</source>
        <translation>Abgeblendet</translation>
    </message>
    <message numerus="yes">
        <source>%n person(s) highlighted, everybody else dimmed</source>
        <translation>
            <numerusform>%n Person hervorgehoben, alle anderen abgeblendet</numerusform>
            <numerusform>%n Personen hervorgehoben, alle anderen abgeblendet</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>WaitingPage</name>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Working out the rows…</source>
        <translation>Die Reihen werden bestimmt…</translation>
    </message>
</context>
<context>
    <name>WorkBar</name>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
</context>
<context>
    <name>lineara::AboutDialog</name>
    <message>
        <source>About Lineara</source>
        <translation>Über Lineara</translation>
    </message>
    <message>
        <source>A family tree that draws itself: whoever is linked finds the right row alone.</source>
        <translation>Ein Stammbaum, der sich selbst zeichnet: Wer verbunden ist, findet von allein die richtige Reihe.</translation>
    </message>
    <message>
        <source>&lt;p&gt;Lineara stands on the work of others, with thanks:&lt;/p&gt;&lt;p&gt;&lt;b&gt;Qt %1&lt;/b&gt;, the toolkit for windows and drawing, under the GNU Lesser General Public License, version 3&lt;br&gt;&lt;b&gt;pugixml&lt;/b&gt; by Arseny Kapoulkine, the reader of XML files, under the MIT License&lt;/p&gt;</source>
        <translation>&lt;p&gt;Lineara steht auf der Arbeit anderer, mit Dank:&lt;/p&gt;&lt;p&gt;&lt;b&gt;Qt %1&lt;/b&gt;, für Fenster und Zeichnung, unter der GNU Lesser General Public License, Version 3&lt;br&gt;&lt;b&gt;pugixml&lt;/b&gt; von Arseny Kapoulkine, zum Lesen von XML-Dateien, unter der MIT-Lizenz&lt;/p&gt;</translation>
    </message>
    <message>
        <source>About &amp;Qt</source>
        <translation>Über &amp;Qt</translation>
    </message>
</context>
<context>
    <name>lineara::RecentTable</name>
    <message>
        <source>Recent families</source>
        <translation>Zuletzt geöffnete Familien</translation>
    </message>
    <message>
        <source>not found</source>
        <translation>nicht gefunden</translation>
    </message>
    <message>
        <source>%1 — %2</source>
        <comment>folder — date</comment>
        <translation>%1 — %2</translation>
    </message>
    <message>
        <source>&amp;Open</source>
        <translation>Ö&amp;ffnen</translation>
    </message>
    <message>
        <source>&amp;Remove from List</source>
        <translation>Aus der Liste &amp;entfernen</translation>
    </message>
</context>
<context>
    <name>lineara::RecoveryPanel</name>
    <message>
        <source>never saved</source>
        <translation>nie gespeichert</translation>
    </message>
    <message>
        <source>changed %1 — %2</source>
        <comment>date and time — folder</comment>
        <translation>geändert %1 — %2</translation>
    </message>
    <message>
        <source>Unsaved work</source>
        <translation>Nicht gespeicherte Arbeit</translation>
    </message>
    <message>
        <source>Not saved when Lineara ended, but not lost:</source>
        <translation>Beim Ende von Lineara nicht gespeichert, aber nicht verloren:</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Öffnen</translation>
    </message>
    <message>
        <source>Open what was left of “%1”</source>
        <translation>Öffnen, was von „%1“ übrig ist</translation>
    </message>
    <message>
        <source>Discard…</source>
        <translation>Verwerfen…</translation>
    </message>
    <message>
        <source>Discard what was left of “%1”</source>
        <translation>Verwerfen, was von „%1“ übrig ist</translation>
    </message>
    <message>
        <source>Discard Unsaved Work</source>
        <translation>Nicht gespeicherte Arbeit verwerfen</translation>
    </message>
    <message>
        <source>Discard the unsaved changes of “%1”?</source>
        <translation>Die nicht gespeicherten Änderungen von „%1“ verwerfen?</translation>
    </message>
    <message>
        <source>They can&apos;t be brought back.</source>
        <translation>Sie lassen sich nicht zurückholen.</translation>
    </message>
    <message>
        <source>&amp;Discard</source>
        <translation>&amp;Verwerfen</translation>
    </message>
</context>
<context>
    <name>lineara::StartWindow</name>
    <message>
        <source>&amp;File</source>
        <translation>&amp;Datei</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>&amp;Hilfe</translation>
    </message>
    <message>
        <source>A family tree that draws itself.</source>
        <translation>Ein Stammbaum, der sich selbst zeichnet.</translation>
    </message>
    <message>
        <source>Begin a &amp;New Family</source>
        <translation>&amp;Neue Familie beginnen</translation>
    </message>
    <message>
        <source>&amp;Open a Family…</source>
        <translation>Familie ö&amp;ffnen…</translation>
    </message>
    <message>
        <source>&amp;Import…</source>
        <translation>&amp;Importieren…</translation>
    </message>
    <message>
        <source>Show the &amp;Sample Family</source>
        <translation>&amp;Beispielfamilie zeigen</translation>
    </message>
    <message>
        <source>Recent Families</source>
        <translation>Zuletzt geöffnete Familien</translation>
    </message>
    <message>
        <source>Families that are opened or saved will be listed here.
A file can also be dropped onto this window.</source>
        <translation>Hier werden Familien stehen, die geöffnet oder gespeichert wurden.
Eine Datei lässt sich auch auf dieses Fenster ziehen.</translation>
    </message>
    <message>
        <source>&amp;Window</source>
        <translation>&amp;Fenster</translation>
    </message>
</context>
</TS>
