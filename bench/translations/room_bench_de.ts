<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>BenchWindow</name>
    <message>
        <source>Reported: %1</source>
        <translation>Gemeldet: %1</translation>
    </message>
    <message>
        <source>Velmar Bench</source>
        <translation>Velmar-Prüfstand</translation>
    </message>
    <message>
        <source>&amp;Bench</source>
        <translation>&amp;Prüfstand</translation>
    </message>
    <message>
        <source>&amp;Load the module</source>
        <translation>Modul &amp;laden</translation>
    </message>
    <message>
        <source>&amp;Unload the module</source>
        <translation>Modul e&amp;ntladen</translation>
    </message>
    <message>
        <source>&amp;Observer mode at the next loading</source>
        <translation>Be&amp;obachtermodus beim nächsten Laden</translation>
    </message>
    <message>
        <source>Show the simulated &amp;room</source>
        <translation>Simulierten &amp;Raum zeigen</translation>
    </message>
    <message>
        <source>&amp;Switch the window</source>
        <translation>&amp;Fenster wechseln</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>&amp;Beenden</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>&amp;Hilfe</translation>
    </message>
    <message>
        <source>&amp;How to measure points</source>
        <translation>&amp;Wie man Punkte misst</translation>
    </message>
    <message>
        <source>&amp;Language</source>
        <translation>&amp;Sprache</translation>
    </message>
    <message>
        <source>Language</source>
        <translation>Sprache</translation>
    </message>
    <message>
        <source>The module was not loaded: %1</source>
        <translation>Das Modul wurde nicht geladen: %1</translation>
    </message>
    <message>
        <source>no module loaded</source>
        <translation>kein Modul geladen</translation>
    </message>
    <message>
        <source>Frames dropped: %1</source>
        <translation>Verworfene Bilder: %1</translation>
    </message>
    <message>
        <source>So many frames came faster than they could be handled.</source>
        <translation>So viele Bilder kamen schneller, als sie verarbeitet werden konnten.</translation>
    </message>
</context>
<context>
    <name>CallLog</name>
    <message>
        <source>No.</source>
        <translation>Nr.</translation>
    </message>
    <message>
        <source>Time [s]</source>
        <translation>Zeit [s]</translation>
    </message>
    <message>
        <source>Operation</source>
        <translation>Operation</translation>
    </message>
    <message>
        <source>Text</source>
        <translation>Text</translation>
    </message>
    <message>
        <source>Result</source>
        <translation>Ergebnis</translation>
    </message>
    <message>
        <source>Answer</source>
        <translation>Antwort</translation>
    </message>
</context>
<context>
    <name>ConversationView</name>
    <message>
        <source>&amp;Show</source>
        <translation>An&amp;zeigen</translation>
    </message>
    <message>
        <source>Which calls are listed</source>
        <translation>Welche Aufrufe aufgelistet werden</translation>
    </message>
    <message>
        <source>Kind of calls</source>
        <translation>Art der Aufrufe</translation>
    </message>
    <message>
        <source>Only calls with this text are listed (Ctrl+F)</source>
        <translation>Nur Aufrufe mit diesem Text werden aufgelistet (Strg+F)</translation>
    </message>
    <message>
        <source>Text to look for</source>
        <translation>Gesuchter Text</translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation>&amp;Kopieren</translation>
    </message>
    <message>
        <source>Copies the selected lines, or all that are listed (Ctrl+C)</source>
        <translation>Kopiert die ausgewählten Zeilen, oder alle aufgelisteten (Strg+C)</translation>
    </message>
    <message>
        <source>Sa&amp;ve...</source>
        <translation>Spei&amp;chern ...</translation>
    </message>
    <message>
        <source>Saves all lines that are listed to a text file</source>
        <translation>Speichert alle aufgelisteten Zeilen in einer Textdatei</translation>
    </message>
    <message>
        <source>Cl&amp;ear</source>
        <translation>&amp;Leeren</translation>
    </message>
    <message>
        <source>Empties the list</source>
        <translation>Leert die Liste</translation>
    </message>
    <message>
        <source>Conversation with the controller</source>
        <translation>Gespräch mit dem Controller</translation>
    </message>
    <message>
        <source>Everything</source>
        <translation>Alles</translation>
    </message>
    <message>
        <source>Commands and settings</source>
        <translation>Befehle und Einstellungen</translation>
    </message>
    <message>
        <source>Failures and reports</source>
        <translation>Fehlschläge und Meldungen</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>Kopieren</translation>
    </message>
    <message>
        <source>Look for a text</source>
        <translation>Text suchen</translation>
    </message>
    <message>
        <source>Save the conversation</source>
        <translation>Gespräch speichern</translation>
    </message>
    <message>
        <source>Text files (*.txt);;All files (*)</source>
        <translation>Textdateien (*.txt);;Alle Dateien (*)</translation>
    </message>
    <message>
        <source>%1 could not be written.</source>
        <translation>%1 konnte nicht geschrieben werden.</translation>
    </message>
</context>
<context>
    <name>GuideWindow</name>
    <message>
        <source>How to measure points</source>
        <translation>Wie man Punkte misst</translation>
    </message>
    <message>
        <source>&lt;ol&gt;&lt;li&gt;In the window &quot;Simulated Room&quot; press &quot;Save the nominal coordinates...&quot; and choose a file. It holds the points as the workpiece&apos;s drawing has them.&lt;/li&gt;&lt;li&gt;Press Shift+F5: the dialog &quot;Room Adjustment&quot; opens.&lt;/li&gt;&lt;li&gt;Choose the tab &quot;Fine&quot; and press &quot;Start&quot; under &quot;Adjust based on reference points&quot;.&lt;/li&gt;&lt;li&gt;Press &quot;Load&quot; there and choose the saved file: its points are the reference points.&lt;/li&gt;&lt;li&gt;In the window &quot;Simulated Room&quot; press &quot;Point 1&quot;, then &quot;Press the tool button&quot;, and wait until the point stands in the dialog&apos;s table.&lt;/li&gt;&lt;li&gt;Do the same with the other points, three at least that are not on a line. A point of the workpiece that is not measured is removed from the reference points.&lt;/li&gt;&lt;li&gt;The report below the tables tells how well both lists fit. Press &quot;Apply&quot;: the dialog closes, and the result stands in the boxes of the tab &quot;Fine&quot;.&lt;/li&gt;&lt;li&gt;Press &quot;Apply&quot; there: the controller has the new coordinates. When the tool touches a point now, the window &quot;Simulated Room&quot; shows its nominal coordinates.&lt;/li&gt;&lt;/ol&gt;&lt;p&gt;F6 switches between the dialog and the simulated room, F1 shows this text.&lt;/p&gt;</source>
        <translation>&lt;ol&gt;&lt;li&gt;Drücken Sie im Fenster „Simulierter Raum“ auf „Nennkoordinaten speichern ...“ und wählen Sie eine Datei. Sie enthält die Punkte so, wie sie in der Zeichnung des Werkstücks stehen.&lt;/li&gt;&lt;li&gt;Drücken Sie Umschalt+F5: Der Dialog „Raumjustierung“ öffnet sich.&lt;/li&gt;&lt;li&gt;Wählen Sie den Reiter „Fein“ und drücken Sie „Starten“ unter „An Referenzpunkten justieren“.&lt;/li&gt;&lt;li&gt;Drücken Sie dort „Laden“ und wählen Sie die gespeicherte Datei: Ihre Punkte sind die Referenzpunkte.&lt;/li&gt;&lt;li&gt;Drücken Sie im Fenster „Simulierter Raum“ auf „Punkt 1“, dann auf „Werkzeugtaste drücken“, und warten Sie, bis der Punkt in der Tabelle des Dialogs steht.&lt;/li&gt;&lt;li&gt;Verfahren Sie ebenso mit den anderen Punkten, mit mindestens dreien, die nicht auf einer Geraden liegen. Ein Punkt des Werkstücks, der nicht gemessen wird, wird aus den Referenzpunkten entfernt.&lt;/li&gt;&lt;li&gt;Der Bericht unter den Tabellen sagt, wie gut beide Listen zusammenpassen. Drücken Sie „Übernehmen“: Der Dialog schließt sich, und das Ergebnis steht in den Feldern des Reiters „Fein“.&lt;/li&gt;&lt;li&gt;Drücken Sie dort „Übernehmen“: Der Controller hat die neuen Koordinaten. Berührt das Werkzeug jetzt einen Punkt, so zeigt das Fenster „Simulierter Raum“ dessen Nennkoordinaten.&lt;/li&gt;&lt;/ol&gt;&lt;p&gt;F6 wechselt zwischen dem Dialog und dem simulierten Raum, F1 zeigt diesen Text.&lt;/p&gt;</translation>
    </message>
</context>
<context>
    <name>LocalController</name>
    <message>
        <source>simulated controller in this program</source>
        <translation>simulierter Controller in diesem Programm</translation>
    </message>
</context>
<context>
    <name>ModuleLibrary</name>
    <message>
        <source>The library %1 was not found.</source>
        <translation>Die Bibliothek %1 wurde nicht gefunden.</translation>
    </message>
    <message>
        <source>%1 holds no module for this front-end.</source>
        <translation>%1 enthält kein Modul für diese Oberfläche.</translation>
    </message>
</context>
<context>
    <name>NumberBox</name>
    <message>
        <source>Not taken: %1 has more than one decimal point or comma.</source>
        <translation>Nicht übernommen: %1 hat mehr als ein Dezimalzeichen.</translation>
    </message>
    <message>
        <source>Not taken: %1 is no whole number.</source>
        <translation>Nicht übernommen: %1 ist keine ganze Zahl.</translation>
    </message>
</context>
<context>
    <name>PointButtons</name>
    <message>
        <source>Point &amp;%1</source>
        <translation>Punkt &amp;%1</translation>
    </message>
    <message>
        <source>Point %1</source>
        <translation>Punkt %1</translation>
    </message>
    <message>
        <source>%1, nominally at %2, %3, %4</source>
        <translation>%1, Nennlage %2, %3, %4</translation>
    </message>
</context>
<context>
    <name>RemoteController</name>
    <message>
        <source>the controller closed the connection</source>
        <translation>der Controller hat die Verbindung geschlossen</translation>
    </message>
    <message>
        <source>no connection within %1 ms</source>
        <translation>keine Verbindung innerhalb von %1 ms</translation>
    </message>
    <message>
        <source>not connected to %1 (%2)</source>
        <translation>nicht mit %1 verbunden (%2)</translation>
    </message>
    <message>
        <source>the answer is garbage: %1</source>
        <translation>die Antwort ist unlesbar: %1</translation>
    </message>
    <message>
        <source>the answer does not end</source>
        <translation>die Antwort endet nicht</translation>
    </message>
    <message>
        <source>the connection was lost</source>
        <translation>die Verbindung ging verloren</translation>
    </message>
    <message>
        <source>the connection was lost in the middle of an answer</source>
        <translation>die Verbindung ging mitten in einer Antwort verloren</translation>
    </message>
    <message>
        <source>no answer within %1 ms</source>
        <translation>keine Antwort innerhalb von %1 ms</translation>
    </message>
    <message>
        <source>Reconnected to %1.</source>
        <translation>Wieder mit %1 verbunden.</translation>
    </message>
    <message>
        <source>Connected to %1.</source>
        <translation>Mit %1 verbunden.</translation>
    </message>
    <message>
        <source>No connection to %1: %2.</source>
        <translation>Keine Verbindung zu %1: %2.</translation>
    </message>
    <message>
        <source>an answer that nobody asked for: %1</source>
        <translation>eine Antwort, nach der niemand gefragt hat: %1</translation>
    </message>
    <message>
        <source>a line does not end</source>
        <translation>eine Zeile endet nicht</translation>
    </message>
</context>
<context>
    <name>RoomControls</name>
    <message>
        <source>The controller does not do &quot;%1&quot;: %2</source>
        <translation>Der Controller führt „%1“ nicht aus: %2</translation>
    </message>
</context>
<context>
    <name>RoomPanel</name>
    <message>
        <source>Simulated Room</source>
        <translation>Simulierter Raum</translation>
    </message>
    <message>
        <source>&amp;Measure</source>
        <translation>&amp;Messen</translation>
    </message>
    <message>
        <source>Save the &amp;nominal coordinates...</source>
        <translation>&amp;Nennkoordinaten speichern ...</translation>
    </message>
    <message>
        <source>Saves the points as the workpiece&apos;s drawing has them, as a reference point file</source>
        <translation>Speichert die Punkte, wie sie die Zeichnung des Werkstücks angibt, als Referenzpunktdatei</translation>
    </message>
    <message>
        <source>&amp;Press the tool button</source>
        <translation>Werkzeugtaste &amp;drücken</translation>
    </message>
    <message>
        <source>One click of the first button of measurement tool 1</source>
        <translation>Einmal die erste Taste von Messwerkzeug 1 drücken</translation>
    </message>
    <message>
        <source>The tool, in room coordinates</source>
        <translation>Das Werkzeug, in Raumkoordinaten</translation>
    </message>
    <message>
        <source>x [mm]</source>
        <translation>x [mm]</translation>
    </message>
    <message>
        <source>y [mm]</source>
        <translation>y [mm]</translation>
    </message>
    <message>
        <source>z [mm]</source>
        <translation>z [mm]</translation>
    </message>
    <message>
        <source>Tool</source>
        <translation>Werkzeug</translation>
    </message>
    <message>
        <source>The hand</source>
        <translation>Die Hand</translation>
    </message>
    <message>
        <source>The cameras &amp;see the tool</source>
        <translation>Die Kameras &amp;sehen das Werkzeug</translation>
    </message>
    <message>
        <source>Whether the tool is in sight of the cameras</source>
        <translation>Ob das Werkzeug im Blick der Kameras ist</translation>
    </message>
    <message>
        <source>&amp;Tremor (sigma)</source>
        <translation>&amp;Zittern (Sigma)</translation>
    </message>
    <message>
        <source>How much the hand trembles, along each axis</source>
        <translation>Wie stark die Hand zittert, entlang jeder Achse</translation>
    </message>
    <message>
        <source>Press the &amp;button of the hand-held device</source>
        <translation>Taste des &amp;Handgeräts drücken</translation>
    </message>
    <message>
        <source>One click of the first button of device 1</source>
        <translation>Einmal die erste Taste von Gerät 1 drücken</translation>
    </message>
    <message>
        <source>&amp;Controller</source>
        <translation>&amp;Controller</translation>
    </message>
    <message>
        <source>State of the controller</source>
        <translation>Zustand des Controllers</translation>
    </message>
    <message>
        <source>&amp;Interface version</source>
        <translation>&amp;Schnittstellenversion</translation>
    </message>
    <message>
        <source>Which commands the controller knows; the module reads it when its dialog opens</source>
        <translation>Welche Befehle der Controller kennt; das Modul liest sie beim Öffnen seines Dialogs</translation>
    </message>
    <message>
        <source>Configuration is &amp;locked</source>
        <translation>Konfiguration ist &amp;gesperrt</translation>
    </message>
    <message>
        <source>The dialog opens with its settings disabled</source>
        <translation>Der Dialog öffnet sich mit abgeschalteten Einstellungen</translation>
    </message>
    <message>
        <source>Tracking is a&amp;vailable</source>
        <translation>Tracking ist &amp;verfügbar</translation>
    </message>
    <message>
        <source>Without it the dialog can only be closed</source>
        <translation>Ohne Tracking kann der Dialog nur geschlossen werden</translation>
    </message>
    <message>
        <source>Control line</source>
        <translation>Steuerzeile</translation>
    </message>
    <message>
        <source>Li&amp;ne</source>
        <translation>Z&amp;eile</translation>
    </message>
    <message>
        <source>Any control line of the simulated controller; Return sends it</source>
        <translation>Eine beliebige Steuerzeile des simulierten Controllers; die Eingabetaste sendet sie</translation>
    </message>
    <message>
        <source>S&amp;end</source>
        <translation>Sen&amp;den</translation>
    </message>
    <message>
        <source>Sends the control line</source>
        <translation>Sendet die Steuerzeile</translation>
    </message>
    <message>
        <source>Answer</source>
        <translation>Antwort</translation>
    </message>
    <message>
        <source>C&amp;alibration</source>
        <translation>K&amp;alibrierung</translation>
    </message>
    <message>
        <source>How the next room calibration goes, or the running one from now on.</source>
        <translation>Wie die nächste Raumkalibrierung verläuft, oder die laufende von jetzt an.</translation>
    </message>
    <message>
        <source>Angle tool</source>
        <translation>Winkelwerkzeug</translation>
    </message>
    <message>
        <source>The cameras see the an&amp;gle tool</source>
        <translation>Die Kameras sehen das &amp;Winkelwerkzeug</translation>
    </message>
    <message>
        <source>Without it the calibration fails at its end</source>
        <translation>Ohne das Winkelwerkzeug scheitert die Kalibrierung am Ende</translation>
    </message>
    <message>
        <source>Stall</source>
        <translation>Stillstand</translation>
    </message>
    <message>
        <source>Stands still a&amp;t</source>
        <translation>Steht still &amp;bei</translation>
    </message>
    <message>
        <source>Progress at which the calibration stands still</source>
        <translation>Fortschritt, bei dem die Kalibrierung stillsteht</translation>
    </message>
    <message>
        <source>&amp;For</source>
        <translation>&amp;Dauer</translation>
    </message>
    <message>
        <source>How long it stands still</source>
        <translation>Wie lange sie stillsteht</translation>
    </message>
    <message>
        <source>&amp;Stall</source>
        <translation>An&amp;halten</translation>
    </message>
    <message>
        <source>Lets the calibration stand still</source>
        <translation>Lässt die Kalibrierung stillstehen</translation>
    </message>
    <message>
        <source>Error</source>
        <translation>Fehler</translation>
    </message>
    <message>
        <source>Fails at &amp;progress</source>
        <translation>Scheitert b&amp;ei</translation>
    </message>
    <message>
        <source>Progress at which the calibration fails</source>
        <translation>Fortschritt, bei dem die Kalibrierung scheitert</translation>
    </message>
    <message>
        <source>Te&amp;xt</source>
        <translation>Te&amp;xt</translation>
    </message>
    <message>
        <source>The error text that the controller gives</source>
        <translation>Der Fehlertext, den der Controller nennt</translation>
    </message>
    <message>
        <source>Fa&amp;il</source>
        <translation>Scheitern &amp;lassen</translation>
    </message>
    <message>
        <source>Lets the calibration fail</source>
        <translation>Lässt die Kalibrierung scheitern</translation>
    </message>
    <message>
        <source>&amp;No stall, no error</source>
        <translation>&amp;Kein Stillstand, kein Fehler</translation>
    </message>
    <message>
        <source>The calibration works again</source>
        <translation>Die Kalibrierung gelingt wieder</translation>
    </message>
    <message>
        <source>Fa&amp;ults</source>
        <translation>Stör&amp;ungen</translation>
    </message>
    <message>
        <source>A call that fails</source>
        <translation>Ein Aufruf, der scheitert</translation>
    </message>
    <message>
        <source>Numb&amp;er</source>
        <translation>Numme&amp;r</translation>
    </message>
    <message>
        <source>Counted from now, among the calls that begin with the text</source>
        <translation>Von jetzt an gezählt, unter den Aufrufen, die mit dem Text beginnen</translation>
    </message>
    <message>
        <source>&amp;Beginning with</source>
        <translation>&amp;Beginnt mit</translation>
    </message>
    <message>
        <source>Empty: every call counts</source>
        <translation>Leer: Jeder Aufruf zählt</translation>
    </message>
    <message>
        <source>&amp;Fail this call</source>
        <translation>Aufruf &amp;scheitern lassen</translation>
    </message>
    <message>
        <source>The call is not executed and returns a failure</source>
        <translation>Der Aufruf wird nicht ausgeführt und meldet einen Fehlschlag</translation>
    </message>
    <message>
        <source>A lost connection</source>
        <translation>Eine verlorene Verbindung</translation>
    </message>
    <message>
        <source>F&amp;or</source>
        <translation>&amp;Dauer</translation>
    </message>
    <message>
        <source>After this time the controller answers again</source>
        <translation>Nach dieser Zeit antwortet der Controller wieder</translation>
    </message>
    <message>
        <source>&amp;Disconnect</source>
        <translation>&amp;Trennen</translation>
    </message>
    <message>
        <source>Every call fails meanwhile and no records arrive</source>
        <translation>Inzwischen scheitert jeder Aufruf, und keine Daten kommen an</translation>
    </message>
    <message>
        <source>Message</source>
        <translation>Meldung</translation>
    </message>
    <message>
        <source>not known, the controller does not say it</source>
        <translation>unbekannt, der Controller sagt es nicht</translation>
    </message>
    <message>
        <source>out of sight</source>
        <translation>außer Sicht</translation>
    </message>
    <message>
        <source>in sight, measuring a point ...</source>
        <translation>in Sicht, misst einen Punkt ...</translation>
    </message>
    <message>
        <source>in sight</source>
        <translation>in Sicht</translation>
    </message>
    <message>
        <source>Save the nominal coordinates</source>
        <translation>Nennkoordinaten speichern</translation>
    </message>
    <message>
        <source>Reference points (*.txt);;All files (*)</source>
        <translation>Referenzpunkte (*.txt);;Alle Dateien (*)</translation>
    </message>
    <message>
        <source>A version is two or three numbers with points, such as 1.24.</source>
        <translation>Eine Version besteht aus zwei oder drei Zahlen mit Punkten, etwa 1.24.</translation>
    </message>
    <message>
        <source>Pages of the simulated room</source>
        <translation>Seiten des simulierten Raums</translation>
    </message>
    <message>
        <source>&lt;ol&gt;&lt;li&gt;Save the nominal coordinates with the button below.&lt;/li&gt;&lt;li&gt;Choose &lt;b&gt;Tracking &amp;gt; Room adjustment&lt;/b&gt; (Shift+F5), the tab &lt;b&gt;Fine&lt;/b&gt;, and &lt;b&gt;Start&lt;/b&gt; under &quot;Adjust based on reference points&quot;.&lt;/li&gt;&lt;li&gt;Load the saved file there as the reference points.&lt;/li&gt;&lt;li&gt;Measure three points or more, each as follows.&lt;/li&gt;&lt;li&gt;Press &lt;b&gt;Apply&lt;/b&gt; there, and again in the room adjustment.&lt;/li&gt;&lt;/ol&gt;</source>
        <translation>&lt;ol&gt;&lt;li&gt;Die Nennkoordinaten mit der Schaltfläche unten speichern.&lt;/li&gt;&lt;li&gt;&lt;b&gt;Tracking &amp;gt; Raumjustierung&lt;/b&gt; (Umschalt+F5) wählen, den Reiter &lt;b&gt;Fein&lt;/b&gt;, und &lt;b&gt;Starten&lt;/b&gt; unter „An Referenzpunkten justieren“.&lt;/li&gt;&lt;li&gt;Dort die gespeicherte Datei als Referenzpunkte laden.&lt;/li&gt;&lt;li&gt;Drei Punkte oder mehr messen, jeden wie folgt.&lt;/li&gt;&lt;li&gt;Dort &lt;b&gt;Übernehmen&lt;/b&gt; drücken, und noch einmal in der Raumjustierung.&lt;/li&gt;&lt;/ol&gt;</translation>
    </message>
    <message>
        <source>Hold the tip of the tool at a point</source>
        <translation>Die Spitze des Werkzeugs an einen Punkt halten</translation>
    </message>
    <message>
        <source>Then press the button of the tool and wait a second</source>
        <translation>Dann die Werkzeugtaste drücken und eine Sekunde warten</translation>
    </message>
    <message>
        <source>Coordinates</source>
        <translation>Koordinaten</translation>
    </message>
    <message>
        <source>Coordinate t&amp;ype</source>
        <translation>Koordinaten&amp;typ</translation>
    </message>
    <message>
        <source>How the axes of the next room calibration lie</source>
        <translation>Wie die Achsen der nächsten Raumkalibrierung liegen</translation>
    </message>
    <message>
        <source>Tool %1</source>
        <translation>Werkzeug %1</translation>
    </message>
    <message>
        <source>x %1, y %2, z %3 mm, %4</source>
        <translation>x %1, y %2, z %3 mm, %4</translation>
    </message>
</context>
</TS>
