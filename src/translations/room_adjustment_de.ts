<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>AbcMatchingDialog</name>
    <message>
        <source>&lt;b&gt;&lt;font color=red&gt;No Measurement Tool available!&lt;/font&gt;&lt;/b&gt;</source>
        <translation>&lt;b&gt;&lt;font color=red&gt;Kein Messwerkzeug verfügbar!&lt;/font&gt;&lt;/b&gt;</translation>
    </message>
    <message>
        <source>This controller does not support measuring points with a measurement tool.</source>
        <translation>Dieser Controller unterstützt das Messen von Punkten mit einem Messwerkzeug nicht.</translation>
    </message>
    <message>
        <source>The controller offers no measurement tool.</source>
        <translation>Der Controller bietet kein Messwerkzeug an.</translation>
    </message>
    <message>
        <source>M%1</source>
        <translation>M%1</translation>
    </message>
    <message>
        <source>The measurement tool is tracked</source>
        <translation>Das Messwerkzeug wird vom Tracking erfasst</translation>
    </message>
    <message>
        <source>The measurement tool is not tracked</source>
        <translation>Das Messwerkzeug wird vom Tracking nicht erfasst</translation>
    </message>
    <message>
        <source>No measurement tool is selected</source>
        <translation>Es ist kein Messwerkzeug ausgewählt</translation>
    </message>
    <message>
        <source>Remove row %1?</source>
        <translation>Zeile %1 entfernen?</translation>
    </message>
    <message>
        <source>Remove all measured points?</source>
        <translation>Alle gemessenen Punkte entfernen?</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>Entfernen</translation>
    </message>
    <message>
        <source>Nothing selected.</source>
        <translation>Nichts ausgewählt.</translation>
    </message>
    <message>
        <source>Error</source>
        <translation>Fehler</translation>
    </message>
    <message>
        <source>&apos;%1&apos; is not a number!</source>
        <translation>„%1“ ist keine Zahl!</translation>
    </message>
    <message>
        <source>Open reference points file...</source>
        <translation>Referenzpunktdatei öffnen ...</translation>
    </message>
    <message>
        <source>Text files (*.txt);; All files (*.*)</source>
        <translation>Textdateien (*.txt);; Alle Dateien (*.*)</translation>
    </message>
    <message>
        <source>Error loading file</source>
        <translation>Fehler beim Laden der Datei</translation>
    </message>
    <message>
        <source>Unknown format !</source>
        <translation>Unbekanntes Format!</translation>
    </message>
    <message>
        <source>Save reference points</source>
        <translation>Referenzpunkte speichern</translation>
    </message>
    <message>
        <source>Text file (*.txt)</source>
        <translation>Textdatei (*.txt)</translation>
    </message>
    <message>
        <source>Warning</source>
        <translation>Warnung</translation>
    </message>
    <message>
        <source>Cannot evaluate the transformation : not enough points.</source>
        <translation>Die Transformation kann nicht bestimmt werden: zu wenige Punkte.</translation>
    </message>
    <message>
        <source>Cannot evaluate the transformation : number of reference and measured points is different.</source>
        <translation>Die Transformation kann nicht bestimmt werden: Es gibt nicht gleich viele Referenzpunkte und gemessene Punkte.</translation>
    </message>
    <message>
        <source>No valid permutation to match transformation.</source>
        <translation>Keine gültige Zuordnung der Punkte für die Transformation.</translation>
    </message>
    <message>
        <source>Error when calculating matching transformation (trafo3d_3trafo) : %1</source>
        <translation>Fehler beim Berechnen der Transformation (trafo3d_3trafo): %1</translation>
    </message>
    <message>
        <source>Error when optimizing matching transformation (trafo3d_opttrafo) : %1</source>
        <translation>Fehler beim Optimieren der Transformation (trafo3d_opttrafo): %1</translation>
    </message>
    <message>
        <source>Transformation evaluation report :
Residual error : %1</source>
        <translation>Bericht zur Bestimmung der Transformation:
Restfehler: %1</translation>
    </message>
    <message>
        <source>
 Point %1 -&gt; %2 : (%3, %4, %5) ; distance to reference point = %6</source>
        <translation>
 Punkt %1 -&gt; %2 : (%3, %4, %5) ; Abstand zum Referenzpunkt = %6</translation>
    </message>
    <message>
        <source>
All values are in [mm]</source>
        <translation>
Alle Werte in [mm]</translation>
    </message>
    <message>
        <source>The search for the best order of the measured points was cancelled.
Measure the points in the order of the table and check &quot;preserve order of points&quot;.</source>
        <translation>Die Suche nach der besten Reihenfolge der gemessenen Punkte wurde abgebrochen.
Messen Sie die Punkte in der Reihenfolge der Tabelle und wählen Sie „Reihenfolge der Punkte beibehalten“.</translation>
    </message>
    <message>
        <source>Searching for the best order of the measured points ...</source>
        <translation>Die beste Reihenfolge der gemessenen Punkte wird gesucht ...</translation>
    </message>
    <message>
        <source>Measurement failed :
Tip moved too much during measurement</source>
        <translation>Messung fehlgeschlagen:
Die Spitze wurde während der Messung zu stark bewegt</translation>
    </message>
    <message>
        <source>Measurement failed :
Tip moved too much during measurement:
	o Variance = %1
	o Standard deviation = %2</source>
        <translation>Messung fehlgeschlagen:
Die Spitze wurde während der Messung zu stark bewegt:
	o Varianz = %1
	o Standardabweichung = %2</translation>
    </message>
    <message>
        <source>The distance of this point, %1 mm, is the largest and more than three times the median distance. Check it or measure it again.</source>
        <translation>Der Abstand dieses Punktes, %1 mm, ist der größte und mehr als das Dreifache des mittleren Abstands (Median). Prüfen Sie den Punkt oder messen Sie ihn erneut.</translation>
    </message>
    <message>
        <source>No measurement data arrives from the controller. Check the connection, and whether the controller is tracking.</source>
        <translation>Es kommen keine Messdaten vom Controller. Prüfen Sie die Verbindung und ob der Controller misst.</translation>
    </message>
    <message>
        <source>%1 of %2 points measured</source>
        <translation>%1 von %2 Punkten gemessen</translation>
    </message>
    <message>
        <source>Reading points...</source>
        <translation>Punkte werden gelesen ...</translation>
    </message>
    <message>
        <source>Saving points...</source>
        <translation>Punkte werden gespeichert ...</translation>
    </message>
    <message>
        <source>The order of more than %1 points is not searched. Measure in the order of the table and check &quot;preserve order of points&quot;.</source>
        <translation>Für mehr als %1 Punkte wird keine Reihenfolge gesucht. Messen Sie in der Reihenfolge der Tabelle und wählen Sie „Reihenfolge der Punkte beibehalten“.</translation>
    </message>
</context>
<context>
    <name>AbcMatchingDialogClass</name>
    <message>
        <source>Room Adjustment Based On Reference Points</source>
        <translation>Raumjustierung anhand von Referenzpunkten</translation>
    </message>
    <message>
        <source>Reference points</source>
        <translation>Referenzpunkte</translation>
    </message>
    <message>
        <source>Coordinates that the points of the object shall have; double-click or press F2 to edit</source>
        <translation>Koordinaten, die die Punkte des Objekts haben sollen; Doppelklick oder F2 zum Bearbeiten</translation>
    </message>
    <message>
        <source>x[mm]</source>
        <translation>x[mm]</translation>
    </message>
    <message>
        <source>y[mm]</source>
        <translation>y[mm]</translation>
    </message>
    <message>
        <source>z[mm]</source>
        <translation>z[mm]</translation>
    </message>
    <message>
        <source>&amp;Load</source>
        <translation>&amp;Laden</translation>
    </message>
    <message>
        <source>Replace the reference points by those of a text file</source>
        <translation>Die Referenzpunkte durch die einer Textdatei ersetzen</translation>
    </message>
    <message>
        <source>&amp;Save</source>
        <translation>&amp;Speichern</translation>
    </message>
    <message>
        <source>Save the reference points to a text file</source>
        <translation>Die Referenzpunkte in einer Textdatei speichern</translation>
    </message>
    <message>
        <source>&amp;Add</source>
        <translation>Hin&amp;zufügen</translation>
    </message>
    <message>
        <source>Add a reference point to the end of the table</source>
        <translation>Einen Referenzpunkt am Ende der Tabelle anfügen</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>Entfernen</translation>
    </message>
    <message>
        <source>Remove the selected reference point</source>
        <translation>Den ausgewählten Referenzpunkt entfernen</translation>
    </message>
    <message>
        <source>&amp;preserve order of points</source>
        <translation>Reihenfolge der Punkte &amp;beibehalten</translation>
    </message>
    <message>
        <source>Assign the measured points to the reference points in the order of the tables, instead of searching for the best order</source>
        <translation>Die gemessenen Punkte den Referenzpunkten in der Reihenfolge der Tabellen zuordnen, statt die beste Reihenfolge zu suchen</translation>
    </message>
    <message>
        <source>Measured points</source>
        <translation>Gemessene Punkte</translation>
    </message>
    <message>
        <source>Measurement &amp;Tool:</source>
        <translation>Mess&amp;werkzeug:</translation>
    </message>
    <message>
        <source>Measurement tool with a calibrated tip</source>
        <translation>Messwerkzeug mit kalibrierter Spitze</translation>
    </message>
    <message>
        <source>Measurement tool</source>
        <translation>Messwerkzeug</translation>
    </message>
    <message>
        <source>Tracking state of the measurement tool</source>
        <translation>Trackingzustand des Messwerkzeugs</translation>
    </message>
    <message>
        <source>Positions of the tip, in the coordinates of the room as it is now</source>
        <translation>Positionen der Spitze, in den Koordinaten des Raums, wie er jetzt ist</translation>
    </message>
    <message>
        <source>&amp;Measure</source>
        <translation>&amp;Messen</translation>
    </message>
    <message>
        <source>Measure the position of the tip; hold the tip still until the bar is full</source>
        <translation>Die Position der Spitze messen; die Spitze ruhig halten, bis der Balken voll ist</translation>
    </message>
    <message>
        <source>Progress of the measurement</source>
        <translation>Fortschritt der Messung</translation>
    </message>
    <message>
        <source>&amp;replace selected</source>
        <translation>Auswahl &amp;ersetzen</translation>
    </message>
    <message>
        <source>The next measurement replaces the selected point</source>
        <translation>Die nächste Messung ersetzt den ausgewählten Punkt</translation>
    </message>
    <message>
        <source>Remove the selected measured point</source>
        <translation>Den ausgewählten gemessenen Punkt entfernen</translation>
    </message>
    <message>
        <source>&amp;Clear</source>
        <translation>Leere&amp;n</translation>
    </message>
    <message>
        <source>Remove all measured points</source>
        <translation>Alle gemessenen Punkte entfernen</translation>
    </message>
    <message>
        <source>Transformation</source>
        <translation>Transformation</translation>
    </message>
    <message>
        <source>Result of the adjustment</source>
        <translation>Ergebnis der Justierung</translation>
    </message>
    <message>
        <source>Reliability of the result</source>
        <translation>Zuverlässigkeit des Ergebnisses</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>&amp;Hilfe</translation>
    </message>
    <message>
        <source>Show help on the adjustment by reference points</source>
        <translation>Hilfe zur Justierung anhand von Referenzpunkten anzeigen</translation>
    </message>
    <message>
        <source>Apply</source>
        <translation>Übernehmen</translation>
    </message>
    <message>
        <source>Close and adjust the room by the transformation</source>
        <translation>Schließen und den Raum mit der Transformation justieren</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Close without adjusting the room</source>
        <translation>Schließen, ohne den Raum zu justieren</translation>
    </message>
    <message>
        <source>Notices</source>
        <translation>Hinweise</translation>
    </message>
    <message>
        <source>Pict&amp;ure...</source>
        <translation>B&amp;ild...</translation>
    </message>
    <message>
        <source>Show the points of the result and their errors as a picture</source>
        <translation>Die Punkte des Ergebnisses und ihre Fehler als Bild zeigen</translation>
    </message>
    <message>
        <source>The running measurement and the last point</source>
        <translation>Die laufende Messung und der letzte Punkt</translation>
    </message>
    <message>
        <source>Large display of the measurement</source>
        <translation>Große Anzeige der Messung</translation>
    </message>
    <message>
        <source>Soun&amp;ds</source>
        <translation>&amp;Töne</translation>
    </message>
    <message>
        <source>One signal when a point was taken, two when a measurement failed</source>
        <translation>Ein Ton, wenn ein Punkt übernommen wurde, zwei, wenn eine Messung gescheitert ist</translation>
    </message>
    <message>
        <source>Lar&amp;ge display</source>
        <translation>&amp;Große Anzeige</translation>
    </message>
    <message>
        <source>Show the running measurement and the last point so large that it can be read from afar</source>
        <translation>Laufende Messung und letzten Punkt so groß zeigen, dass man sie von weitem lesen kann</translation>
    </message>
    <message>
        <source>Save rep&amp;ort...</source>
        <translation>Be&amp;richt speichern...</translation>
    </message>
    <message>
        <source>Save the points, the result and the transformation in a text file</source>
        <translation>Punkte, Ergebnis und Transformation in einer Textdatei speichern</translation>
    </message>
    <message>
        <source>Cop&amp;y</source>
        <translation>&amp;Kopieren</translation>
    </message>
    <message>
        <source>Copy the report of the result to the clipboard</source>
        <translation>Bericht zum Ergebnis in die Zwischenablage kopieren</translation>
    </message>
    <message>
        <source>Copy the report of the result</source>
        <translation>Bericht zum Ergebnis kopieren</translation>
    </message>
</context>
<context>
    <name>AdjustToToolDlg</name>
    <message>
        <source>Adjust Room Coordinates To Angle Tool</source>
        <translation>Raumkoordinaten am Winkelwerkzeug justieren</translation>
    </message>
    <message>
        <source>Picture of the angle tool: A is the distance of markers 1 and 2, B of 1 and 4, C of 1 and 3; the height is that of the markers above the floor</source>
        <translation>Bild des Winkelwerkzeugs: A ist der Abstand der Marker 1 und 2, B der Marker 1 und 4, C der Marker 1 und 3; die Höhe ist die der Marker über dem Boden</translation>
    </message>
    <message>
        <source>angle tool</source>
        <translation>Winkelwerkzeug</translation>
    </message>
    <message>
        <source>Model of the angle tool; expert allows to enter its dimensions</source>
        <translation>Modell des Winkelwerkzeugs; mit „Experte“ können die Maße eingegeben werden</translation>
    </message>
    <message>
        <source>marker distances</source>
        <translation>Markerabstände</translation>
    </message>
    <message>
        <source>A (1-2) [mm]</source>
        <translation>A (1-2) [mm]</translation>
    </message>
    <message>
        <source>Distance of marker 1 to marker 2</source>
        <translation>Abstand von Marker 1 zu Marker 2</translation>
    </message>
    <message>
        <source>B (1-4) [mm]</source>
        <translation>B (1-4) [mm]</translation>
    </message>
    <message>
        <source>Distance of marker 1 to marker 4</source>
        <translation>Abstand von Marker 1 zu Marker 4</translation>
    </message>
    <message>
        <source>C (1-3) [mm]</source>
        <translation>C (1-3) [mm]</translation>
    </message>
    <message>
        <source>Distance of marker 1 to marker 3</source>
        <translation>Abstand von Marker 1 zu Marker 3</translation>
    </message>
    <message>
        <source>height [mm]</source>
        <translation>Höhe [mm]</translation>
    </message>
    <message>
        <source>Height of the marker centres above the floor</source>
        <translation>Höhe der Markermittelpunkte über dem Boden</translation>
    </message>
    <message>
        <source>coordinate system</source>
        <translation>Koordinatensystem</translation>
    </message>
    <message>
        <source>Directions of the new axes</source>
        <translation>Richtungen der neuen Achsen</translation>
    </message>
    <message>
        <source>Calibrate the room with the angle tool</source>
        <translation>Den Raum mit dem Winkelwerkzeug kalibrieren</translation>
    </message>
    <message>
        <source>&amp;Calibrate</source>
        <translation>&amp;Kalibrieren</translation>
    </message>
    <message>
        <source>Close this dialog</source>
        <translation>Diesen Dialog schließen</translation>
    </message>
    <message>
        <source>E&amp;xit</source>
        <translation>&amp;Schließen</translation>
    </message>
    <message>
        <source>This function is not supported by the Controller!</source>
        <translation>Diese Funktion wird vom Controller nicht unterstützt!</translation>
    </message>
    <message>
        <source>Error</source>
        <translation>Fehler</translation>
    </message>
    <message>
        <source>Unable to roomcalibration type
Calibration aborted.</source>
        <translation>Die Art der Raumkalibrierung konnte nicht eingestellt werden.
Die Kalibrierung wurde abgebrochen.</translation>
    </message>
    <message>
        <source>Unable to set new calibration to Controller.</source>
        <translation>Die neue Kalibrierung konnte nicht an den Controller übergeben werden.</translation>
    </message>
    <message>
        <source>Calibration successful</source>
        <translation>Kalibrierung erfolgreich</translation>
    </message>
    <message>
        <source>Calibration successful!
New calibration is set to Controller.</source>
        <translation>Kalibrierung erfolgreich!
Die neue Kalibrierung ist an den Controller übergeben.</translation>
    </message>
    <message>
        <source>expert</source>
        <translation>Experte</translation>
    </message>
</context>
<context>
    <name>CalibrationProgressDialog</name>
    <message>
        <source>Calibration Progress</source>
        <translation>Kalibrierungsfortschritt</translation>
    </message>
    <message>
        <source>room calibration</source>
        <translation>Raumkalibrierung</translation>
    </message>
    <message>
        <source>Calibration progress of the cameras</source>
        <translation>Kalibrierungsfortschritt der Kameras</translation>
    </message>
    <message>
        <source>Overall calibration progress</source>
        <translation>Gesamtfortschritt der Kalibrierung</translation>
    </message>
    <message>
        <source>remaining time:</source>
        <translation>verbleibende Zeit:</translation>
    </message>
    <message>
        <source>Stop the calibration and keep the present one</source>
        <translation>Die Kalibrierung beenden und die bisherige behalten</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
</context>
<context>
    <name>CalibrationProgressDlg</name>
    <message>
        <source> is a %1 step calibration.</source>
        <translation> ist eine Kalibrierung in %1 Schritten.</translation>
    </message>
    <message>
        <source>
Currently this calibration cannot be interrupted!</source>
        <translation>
Diese Kalibrierung kann zurzeit nicht unterbrochen werden!</translation>
    </message>
    <message>
        <source>remaining time: %1 seconds</source>
        <translation>verbleibende Zeit: %1 Sekunden</translation>
    </message>
    <message>
        <source>calculating...</source>
        <translation>Berechnung läuft ...</translation>
    </message>
    <message>
        <source>Calibration Error</source>
        <translation>Kalibrierungsfehler</translation>
    </message>
    <message>
        <source>&lt;b&gt;&lt;font color=red&gt;Please move the wand in the view scope of ALL cameras!&lt;/font&gt;&lt;/b&gt;</source>
        <translation>&lt;b&gt;&lt;font color=red&gt;Bitte den Kalibrierstab im Sichtbereich ALLER Kameras bewegen!&lt;/font&gt;&lt;/b&gt;</translation>
    </message>
</context>
<context>
    <name>CameraStatus</name>
    <message>
        <source>Tab of the front-end that shows this camera</source>
        <translation>Reiter der Bedienoberfläche, der diese Kamera zeigt</translation>
    </message>
    <message>
        <source>tab 01</source>
        <translation>Reiter 01</translation>
    </message>
    <message>
        <source>Serial number of the camera</source>
        <translation>Seriennummer der Kamera</translation>
    </message>
    <message>
        <source>00028</source>
        <translation>00028</translation>
    </message>
    <message>
        <source>Calibration progress of the camera</source>
        <translation>Kalibrierungsfortschritt der Kamera</translation>
    </message>
    <message>
        <source>tab %1</source>
        <translation>Reiter %1</translation>
    </message>
</context>
<context>
    <name>CoarseAdjustment</name>
    <message>
        <source>Adjust room coordinate system by rotating around axes</source>
        <translation>Raumkoordinatensystem durch Drehen um Achsen justieren</translation>
    </message>
    <message>
        <source>camera coordinates</source>
        <translation>Kamerakoordinaten</translation>
    </message>
    <message>
        <source>Camera coordinates</source>
        <translation>Kamerakoordinaten</translation>
    </message>
    <message>
        <source>assign axes to room directions</source>
        <translation>Achsen den Raumrichtungen zuordnen</translation>
    </message>
    <message>
        <source>Change the vertical axis to rotate room coordinate system.</source>
        <translation>Die senkrechte Achse ändern, um das Raumkoordinatensystem zu drehen.</translation>
    </message>
    <message>
        <source>Axis that points up</source>
        <translation>Achse, die nach oben zeigt</translation>
    </message>
    <message>
        <source>Axis that points away from the viewer</source>
        <translation>Achse, die vom Betrachter weg zeigt</translation>
    </message>
    <message>
        <source>Axis that points to the left</source>
        <translation>Achse, die nach links zeigt</translation>
    </message>
    <message>
        <source>The current room coordinate system.</source>
        <translation>Das aktuelle Raumkoordinatensystem.</translation>
    </message>
    <message>
        <source>Change the horizontal axis to rotate room coordinate system.</source>
        <translation>Die waagerechte Achse ändern, um das Raumkoordinatensystem zu drehen.</translation>
    </message>
    <message>
        <source>Axis that points to the right</source>
        <translation>Achse, die nach rechts zeigt</translation>
    </message>
    <message>
        <source>Axis that points towards the viewer</source>
        <translation>Achse, die zum Betrachter zeigt</translation>
    </message>
    <message>
        <source>Axis that points down</source>
        <translation>Achse, die nach unten zeigt</translation>
    </message>
    <message>
        <source>Reset room coordinate system to default values</source>
        <translation>Raumkoordinatensystem auf Standardwerte zurücksetzen</translation>
    </message>
    <message>
        <source>&amp;Reset</source>
        <translation>&amp;Zurücksetzen</translation>
    </message>
    <message>
        <source>The coordinate type of the room calibration is not known here, so axes cannot be assigned to directions here. Use the tab &quot;Fine&quot;.</source>
        <translation>Der Koordinatentyp der Raumkalibrierung ist hier nicht bekannt, daher können hier keine Achsen zugeordnet werden. Bitte den Reiter „Fein“ verwenden.</translation>
    </message>
    <message>
        <source>The controller has no coordinate type of a room calibration, so axes cannot be assigned to directions here. Use the tab &quot;Fine&quot;.</source>
        <translation>Der Controller kennt keinen Koordinatentyp einer Raumkalibrierung, daher können hier keine Achsen zugeordnet werden. Bitte den Reiter „Fein“ verwenden.</translation>
    </message>
    <message>
        <source>The room is turned by angles that are not multiples of 90 degrees, so axes cannot be assigned to directions here. Use the tab &quot;Fine&quot;.</source>
        <translation>Der Raum ist um Winkel gedreht, die keine Vielfachen von 90 Grad sind, daher können hier keine Achsen zugeordnet werden. Bitte den Reiter „Fein“ verwenden.</translation>
    </message>
</context>
<context>
    <name>CooTrans</name>
    <message>
        <source>Room in 3D</source>
        <translation>Raum in 3D</translation>
    </message>
    <message>
        <source>Long axes</source>
        <translation>Lange Achsen</translation>
    </message>
    <message>
        <source>Show XY plane</source>
        <translation>XY-Ebene anzeigen</translation>
    </message>
    <message>
        <source>Show YZ plane</source>
        <translation>YZ-Ebene anzeigen</translation>
    </message>
    <message>
        <source>Show XZ plane</source>
        <translation>XZ-Ebene anzeigen</translation>
    </message>
    <message>
        <source>Scaling</source>
        <translation>Skalierung</translation>
    </message>
    <message>
        <source>Scaling (+/- 5%)</source>
        <translation>Skalierung (+/- 5 %)</translation>
    </message>
    <message>
        <source>Room Adjustment</source>
        <translation>Raumjustierung</translation>
    </message>
    <message>
        <source>You have unsaved data. Save changes?

(If yes press &apos;Apply&apos; and re-open matching)</source>
        <translation>Es gibt nicht gespeicherte Daten. Änderungen speichern?

(Falls ja, „Übernehmen“ und dann erneut „Starten“ drücken)</translation>
    </message>
</context>
<context>
    <name>CooTransClass</name>
    <message>
        <source>Tracking is not available.</source>
        <translation>Das Tracking ist nicht verfügbar.</translation>
    </message>
    <message>
        <source>Zero point offset</source>
        <translation>Nullpunktverschiebung</translation>
    </message>
    <message>
        <source>x [mm]</source>
        <translation>x [mm]</translation>
    </message>
    <message>
        <source>Vector for zero point offset</source>
        <translation>Vektor der Nullpunktverschiebung</translation>
    </message>
    <message>
        <source>Zero point offset x</source>
        <translation>Nullpunktverschiebung x</translation>
    </message>
    <message>
        <source>y [mm]</source>
        <translation>y [mm]</translation>
    </message>
    <message>
        <source>Zero point offset y</source>
        <translation>Nullpunktverschiebung y</translation>
    </message>
    <message>
        <source>z [mm]</source>
        <translation>z [mm]</translation>
    </message>
    <message>
        <source>Zero point offset z</source>
        <translation>Nullpunktverschiebung z</translation>
    </message>
    <message>
        <source>Reset x, y, z to 0.00</source>
        <translation>x, y, z auf 0.00 zurücksetzen</translation>
    </message>
    <message>
        <source>Reset vector</source>
        <translation>Vektor zurücksetzen</translation>
    </message>
    <message>
        <source>Rotation angles</source>
        <translation>Drehwinkel</translation>
    </message>
    <message>
        <source>rx [deg]</source>
        <translation>rx [Grad]</translation>
    </message>
    <message>
        <source>Rotation angles:
rx (eta)    range [-180 deg .. +180 deg]
ry (theta) range [-  90 deg .. +  90 deg]
rz (phi)    range [-180 deg .. +180 deg]</source>
        <translation>Drehwinkel:
rx (eta)    Bereich [-180 Grad .. +180 Grad]
ry (theta) Bereich [-  90 Grad .. +  90 Grad]
rz (phi)    Bereich [-180 Grad .. +180 Grad]</translation>
    </message>
    <message>
        <source>Rotation angle rx</source>
        <translation>Drehwinkel rx</translation>
    </message>
    <message>
        <source>ry [deg]</source>
        <translation>ry [Grad]</translation>
    </message>
    <message>
        <source>Rotation angle ry</source>
        <translation>Drehwinkel ry</translation>
    </message>
    <message>
        <source>rz [deg]</source>
        <translation>rz [Grad]</translation>
    </message>
    <message>
        <source>Rotation angle rz</source>
        <translation>Drehwinkel rz</translation>
    </message>
    <message>
        <source>Reset rx, ry, rz to 0.00</source>
        <translation>rx, ry, rz auf 0.00 zurücksetzen</translation>
    </message>
    <message>
        <source>Reset angles</source>
        <translation>Winkel zurücksetzen</translation>
    </message>
    <message>
        <source>Scaling factor</source>
        <translation>Skalierungsfaktor</translation>
    </message>
    <message>
        <source>factor</source>
        <translation>Faktor</translation>
    </message>
    <message>
        <source>Scaling (+/- 5%)</source>
        <translation>Skalierung (+/- 5 %)</translation>
    </message>
    <message>
        <source>Reset scaling factor to 1.000</source>
        <translation>Skalierungsfaktor auf 1.000 zurücksetzen</translation>
    </message>
    <message>
        <source>Reset scaling</source>
        <translation>Skalierung zurücksetzen</translation>
    </message>
    <message>
        <source>Adjust to angle tool</source>
        <translation>Am Winkelwerkzeug justieren</translation>
    </message>
    <message>
        <source>Open adjust room coordinates to angle tool</source>
        <translation>Die Justierung der Raumkoordinaten am Winkelwerkzeug öffnen</translation>
    </message>
    <message>
        <source>&amp;Adjust</source>
        <translation>&amp;Am Werkzeug justieren</translation>
    </message>
    <message>
        <source>Adjust based on reference points</source>
        <translation>An Referenzpunkten justieren</translation>
    </message>
    <message>
        <source>Open room adjustment based on reference points</source>
        <translation>Die Raumjustierung anhand von Referenzpunkten öffnen</translation>
    </message>
    <message>
        <source>&amp;Start</source>
        <translation>&amp;Starten</translation>
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
        <source>The room cannot be drawn: this computer offers no OpenGL. All numbers can be edited and applied.</source>
        <translation>Der Raum kann nicht gezeichnet werden: Dieser Rechner bietet kein OpenGL. Alle Zahlen können bearbeitet und übernommen werden.</translation>
    </message>
    <message>
        <source>Change view position</source>
        <translation>Position der Ansicht ändern</translation>
    </message>
    <message>
        <source>View position</source>
        <translation>Ansichtsposition</translation>
    </message>
    <message>
        <source>Change view orientation</source>
        <translation>Ausrichtung der Ansicht ändern</translation>
    </message>
    <message>
        <source>View orientation</source>
        <translation>Ansichtsausrichtung</translation>
    </message>
    <message>
        <source>show XY</source>
        <translation>XY anzeigen</translation>
    </message>
    <message>
        <source>show YZ</source>
        <translation>YZ anzeigen</translation>
    </message>
    <message>
        <source>show XZ</source>
        <translation>XZ anzeigen</translation>
    </message>
    <message>
        <source>long axes</source>
        <translation>lange Achsen</translation>
    </message>
    <message>
        <source>Adjust scaling of graphic view</source>
        <translation>Maßstab der grafischen Ansicht anpassen</translation>
    </message>
    <message>
        <source>Adjust view</source>
        <translation>Ansicht anpassen</translation>
    </message>
    <message>
        <source>Reset graphic view to the default</source>
        <translation>Grafische Ansicht auf den Standard zurücksetzen</translation>
    </message>
    <message>
        <source>Reset view</source>
        <translation>Ansicht zurücksetzen</translation>
    </message>
    <message>
        <source>Show help on mouse controls in graphic view</source>
        <translation>Hilfe zur Maussteuerung der grafischen Ansicht anzeigen</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>&amp;Hilfe</translation>
    </message>
    <message>
        <source>What &quot;Apply&quot; will change at the controller</source>
        <translation>Was „Übernehmen“ am Controller ändern wird</translation>
    </message>
</context>
<context>
    <name>CountdownDialog</name>
    <message>
        <source>Waiting</source>
        <translation>Warten</translation>
    </message>
    <message>
        <source>Seconds until the next calibration step</source>
        <translation>Sekunden bis zum nächsten Kalibrierungsschritt</translation>
    </message>
    <message>
        <source>Seconds until the calibration step starts</source>
        <translation>Sekunden bis zum Beginn des Kalibrierungsschritts</translation>
    </message>
    <message>
        <source>TextLabel</source>
        <translation>Text</translation>
    </message>
    <message>
        <source>Start the calibration step without waiting</source>
        <translation>Den Kalibrierungsschritt sofort beginnen</translation>
    </message>
    <message>
        <source>Start now</source>
        <translation>Jetzt starten</translation>
    </message>
    <message>
        <source>Cancel the calibration</source>
        <translation>Die Kalibrierung abbrechen</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
</context>
<context>
    <name>FitPicture</name>
    <message>
        <source>%1 mm</source>
        <translation>%1 mm</translation>
    </message>
    <message>
        <source>Errors are drawn %1 times as large.</source>
        <translation>Fehler sind %1-mal so groß gezeichnet.</translation>
    </message>
    <message>
        <source>Broken lines: another order of the points fits as well.</source>
        <translation>Gestrichelt: Eine andere Reihenfolge der Punkte passt ebenso gut.</translation>
    </message>
</context>
<context>
    <name>FitPictureWindow</name>
    <message>
        <source>Picture of the matching</source>
        <translation>Bild der Zuordnung</translation>
    </message>
    <message>
        <source>&amp;Seen along</source>
        <translation>&amp;Blick entlang</translation>
    </message>
    <message>
        <source>The axis of the reference coordinates that you look along</source>
        <translation>Die Achse der Referenzkoordinaten, an der man entlang blickt</translation>
    </message>
    <message>
        <source>the x axis</source>
        <translation>der x-Achse</translation>
    </message>
    <message>
        <source>the y axis</source>
        <translation>der y-Achse</translation>
    </message>
    <message>
        <source>the z axis</source>
        <translation>der z-Achse</translation>
    </message>
    <message>
        <source>Crosses are the reference points, discs the measured points, each carried over by the transformation. The ring marks the worst point.</source>
        <translation>Kreuze sind die Referenzpunkte, Scheiben die gemessenen Punkte, jeder durch die Transformation übertragen. Der Ring kennzeichnet den schlechtesten Punkt.</translation>
    </message>
    <message>
        <source>Picture of the reference points and the measured points</source>
        <translation>Bild der Referenzpunkte und der gemessenen Punkte</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>&amp;Schließen</translation>
    </message>
</context>
<context>
    <name>HelpDialog</name>
    <message>
        <source>Help</source>
        <translation>Hilfe</translation>
    </message>
    <message>
        <source>Control of the graphic view</source>
        <translation>Steuerung der grafischen Ansicht</translation>
    </message>
    <message>
        <source>panning:</source>
        <translation>Verschieben:</translation>
    </message>
    <message>
        <source>rotating:</source>
        <translation>Drehen:</translation>
    </message>
    <message>
        <source>zoom in / out:</source>
        <translation>Vergrößern / Verkleinern:</translation>
    </message>
    <message>
        <source>Panning</source>
        <translation>Verschieben</translation>
    </message>
    <message>
        <source>Rotating</source>
        <translation>Drehen</translation>
    </message>
    <message>
        <source>Zooming</source>
        <translation>Vergrößern und Verkleinern</translation>
    </message>
    <message>
        <source>Ctrl + left mouse button</source>
        <translation>Strg + linke Maustaste</translation>
    </message>
    <message>
        <source>Ctrl + right mouse button</source>
        <translation>Strg + rechte Maustaste</translation>
    </message>
    <message>
        <source>Ctrl + mouse wheel&lt;br&gt;
Shift + left mouse button</source>
        <translation>Strg + Mausrad&lt;br&gt;
Umschalt + linke Maustaste</translation>
    </message>
    <message>
        <source>Close this help</source>
        <translation>Diese Hilfe schließen</translation>
    </message>
    <message>
        <source>E&amp;xit</source>
        <translation>&amp;Schließen</translation>
    </message>
    <message>
        <source>Alt+X</source>
        <translation>Alt+S</translation>
    </message>
</context>
<context>
    <name>JobReport</name>
    <message>
        <source>Transformation that the controller gets</source>
        <translation>Transformation, die der Controller erhält</translation>
    </message>
    <message>
        <source>Transformation of the controller before</source>
        <translation>Transformation des Controllers davor</translation>
    </message>
    <message>
        <source>Room adjustment based on reference points</source>
        <translation>Raumjustierung anhand von Referenzpunkten</translation>
    </message>
    <message>
        <source>Date and time: %1</source>
        <translation>Datum und Uhrzeit: %1</translation>
    </message>
    <message>
        <source>Module version: %1</source>
        <translation>Version des Moduls: %1</translation>
    </message>
    <message>
        <source>Measurement tool: M%1</source>
        <translation>Messwerkzeug: M%1</translation>
    </message>
    <message>
        <source>Duration of a measurement: %1 s</source>
        <translation>Dauer einer Messung: %1 s</translation>
    </message>
    <message>
        <source>Tip tolerance: %1 mm</source>
        <translation>Spitzentoleranz: %1 mm</translation>
    </message>
    <message>
        <source>Reference points: number, x, y, z in mm</source>
        <translation>Referenzpunkte: Nummer, x, y, z in mm</translation>
    </message>
    <message>
        <source>Measured points: number, x, y, z in mm</source>
        <translation>Gemessene Punkte: Nummer, x, y, z in mm</translation>
    </message>
    <message>
        <source>Pairs: reference point, measured point, distance in mm</source>
        <translation>Paare: Referenzpunkt, gemessener Punkt, Abstand in mm</translation>
    </message>
    <message>
        <source>Order of the points: preserved</source>
        <translation>Reihenfolge der Punkte: beibehalten</translation>
    </message>
    <message>
        <source>Order of the points: searched</source>
        <translation>Reihenfolge der Punkte: gesucht</translation>
    </message>
    <message>
        <source>Residual error: %1 mm</source>
        <translation>Restfehler: %1 mm</translation>
    </message>
    <message>
        <source>Rotation, row by row: %1</source>
        <translation>Rotation, zeilenweise: %1</translation>
    </message>
    <message>
        <source>Translation in mm: %1</source>
        <translation>Translation in mm: %1</translation>
    </message>
    <message>
        <source>Scaling: %1</source>
        <translation>Skalierung: %1</translation>
    </message>
    <message>
        <source>Notices: none</source>
        <translation>Hinweise: keine</translation>
    </message>
    <message>
        <source>Notices</source>
        <translation>Hinweise</translation>
    </message>
</context>
<context>
    <name>ListReport</name>
    <message>
        <source>The reference points could not be saved in &quot;%1&quot;. An older file of that name is as it was.</source>
        <translation>Die Referenzpunkte konnten nicht in „%1“ gespeichert werden. Eine ältere Datei dieses Namens ist, wie sie war.</translation>
    </message>
    <message>
        <source>A list holds %1 points at most; there would be more. The list is as it was.</source>
        <translation>Eine Liste fasst höchstens %1 Punkte; es wären mehr. Die Liste ist, wie sie war.</translation>
    </message>
    <message>
        <source>These lines of the pasted text are not three numbers and were left out: %1.</source>
        <translation>Diese Zeilen des eingefügten Textes sind keine drei Zahlen und wurden weggelassen: %1.</translation>
    </message>
</context>
<context>
    <name>MatchingHelpClass</name>
    <message>
        <source>Room Adjustment Based On Reference Points Help</source>
        <translation>Hilfe zur Raumjustierung anhand von Referenzpunkten</translation>
    </message>
    <message>
        <source>Description how to do the room adjustment based on reference points</source>
        <translation>Beschreibung der Raumjustierung anhand von Referenzpunkten</translation>
    </message>
    <message>
        <source>&lt;h3&gt;How to adjust the room based on reference points&lt;/h3&gt;
&lt;p&gt;The coordinate transformation moves the origin and the orientation of the tracking system&apos;s initial coordinate system, marked &lt;b&gt;O&lt;/b&gt; in the picture, to a coordinate system that is given by an object, marked &lt;b&gt;T&lt;/b&gt;. Afterwards all 6DOF measurements of the targets are delivered relative to the coordinate system of the object.&lt;/p&gt;</source>
        <translation>&lt;h3&gt;Raumjustierung anhand von Referenzpunkten&lt;/h3&gt;
&lt;p&gt;Die Koordinatentransformation verschiebt Ursprung und Orientierung des anfänglichen Koordinatensystems des Trackingsystems, im Bild mit &lt;b&gt;O&lt;/b&gt; bezeichnet, in ein Koordinatensystem, das durch ein Objekt gegeben ist, im Bild mit &lt;b&gt;T&lt;/b&gt; bezeichnet. Danach werden alle 6DOF-Messungen der Targets relativ zum Koordinatensystem des Objekts ausgegeben.&lt;/p&gt;</translation>
    </message>
    <message>
        <source>Picture: the initial coordinate system O and the coordinate system T of an object</source>
        <translation>Bild: das anfängliche Koordinatensystem O und das Koordinatensystem T eines Objekts</translation>
    </message>
    <message>
        <source>&lt;p&gt;&lt;b&gt;Step 1: add the reference points&lt;/b&gt;&lt;/p&gt;
&lt;p&gt;Add the reference points of the object&apos;s coordinate system; at least three are needed, and the first three must not lie on one line. There are two ways:&lt;/p&gt;
&lt;ul&gt;&lt;li&gt;type the coordinates into the table &lt;i&gt;Reference points&lt;/i&gt;: the button &lt;i&gt;Add&lt;/i&gt; appends a row;&lt;/li&gt;
&lt;li&gt;load them from a text file with the button &lt;i&gt;Load&lt;/i&gt;.&lt;/li&gt;&lt;/ul&gt;</source>
        <translation>&lt;p&gt;&lt;b&gt;Schritt 1: Referenzpunkte eingeben&lt;/b&gt;&lt;/p&gt;
&lt;p&gt;Fügen Sie die Referenzpunkte des Objektkoordinatensystems hinzu; mindestens drei sind nötig, und die ersten drei dürfen nicht auf einer Geraden liegen. Es gibt zwei Wege:&lt;/p&gt;
&lt;ul&gt;&lt;li&gt;die Koordinaten in die Tabelle &lt;i&gt;Referenzpunkte&lt;/i&gt; eintippen: Die Schaltfläche &lt;i&gt;Hinzufügen&lt;/i&gt; hängt eine Zeile an;&lt;/li&gt;
&lt;li&gt;sie mit der Schaltfläche &lt;i&gt;Laden&lt;/i&gt; aus einer Textdatei laden.&lt;/li&gt;&lt;/ul&gt;</translation>
    </message>
    <message>
        <source>Picture: a reference point file with five points</source>
        <translation>Bild: eine Referenzpunktdatei mit fünf Punkten</translation>
    </message>
    <message>
        <source>&lt;p&gt;&lt;b&gt;The text file&lt;/b&gt;&lt;/p&gt;
&lt;p&gt;The file holds one point per line in four columns: the number of the reference point, then its X, Y and Z coordinates in millimetres, with a decimal point. The columns are separated by one or more whitespace characters. The first point has the number 1. The button &lt;i&gt;Save&lt;/i&gt; writes such a file.&lt;/p&gt;</source>
        <translation>&lt;p&gt;&lt;b&gt;Die Textdatei&lt;/b&gt;&lt;/p&gt;
&lt;p&gt;Die Datei enthält je Zeile einen Punkt in vier Spalten: die Nummer des Referenzpunkts, dann seine X-, Y- und Z-Koordinaten in Millimetern, mit Dezimalpunkt. Die Spalten sind durch ein oder mehrere Leerzeichen oder Tabulatoren getrennt. Der erste Punkt hat die Nummer 1. Die Schaltfläche &lt;i&gt;Speichern&lt;/i&gt; schreibt eine solche Datei.&lt;/p&gt;</translation>
    </message>
    <message>
        <source>&lt;p&gt;&lt;b&gt;Step 2: measure the points on the object&lt;/b&gt;&lt;/p&gt;
&lt;p&gt;With a calibrated measurement tool inside the tracking volume, touch the points on the object that correspond to the reference points of step 1, and hold the tip still. The order does not matter, unless you check &lt;i&gt;preserve order of points&lt;/i&gt;. A measurement is started by any of these:&lt;/p&gt;
&lt;ul&gt;&lt;li&gt;clicking the button &lt;i&gt;Measure&lt;/i&gt;,&lt;/li&gt;
&lt;li&gt;pressing a button of the measurement tool,&lt;/li&gt;
&lt;li&gt;the measurement start simulation of the measurement tool itself,&lt;/li&gt;
&lt;li&gt;pressing a button of an assigned hand-held input device.&lt;/li&gt;&lt;/ul&gt;
&lt;p&gt;&lt;b&gt;Step 3: check and accept the result&lt;/b&gt;&lt;/p&gt;
&lt;p&gt;When all reference points have been measured, the result is shown in the text box &lt;i&gt;Transformation&lt;/i&gt;: the residual error, and the distance of every point to its reference point. Accepting it with &lt;i&gt;Apply&lt;/i&gt; closes the dialog and passes the transformation on.&lt;/p&gt;</source>
        <translation>&lt;p&gt;&lt;b&gt;Schritt 2: Punkte am Objekt messen&lt;/b&gt;&lt;/p&gt;
&lt;p&gt;Berühren Sie mit einem kalibrierten Messwerkzeug innerhalb des Trackingvolumens die Punkte am Objekt, die den Referenzpunkten aus Schritt 1 entsprechen, und halten Sie die Spitze ruhig. Die Reihenfolge ist beliebig, außer wenn &lt;i&gt;Reihenfolge der Punkte beibehalten&lt;/i&gt; gewählt ist. Eine Messung beginnt durch:&lt;/p&gt;
&lt;ul&gt;&lt;li&gt;Klicken auf die Schaltfläche &lt;i&gt;Messen&lt;/i&gt;,&lt;/li&gt;
&lt;li&gt;Drücken einer Taste des Messwerkzeugs,&lt;/li&gt;
&lt;li&gt;die Messstart-Simulation des Messwerkzeugs selbst,&lt;/li&gt;
&lt;li&gt;Drücken einer Taste eines zugeordneten Handeingabegeräts.&lt;/li&gt;&lt;/ul&gt;
&lt;p&gt;&lt;b&gt;Schritt 3: Ergebnis prüfen und übernehmen&lt;/b&gt;&lt;/p&gt;
&lt;p&gt;Sind alle Referenzpunkte gemessen, steht das Ergebnis im Textfeld &lt;i&gt;Transformation&lt;/i&gt;: der Restfehler und der Abstand jedes Punktes zu seinem Referenzpunkt. &lt;i&gt;Übernehmen&lt;/i&gt; schließt den Dialog und gibt die Transformation weiter.&lt;/p&gt;</translation>
    </message>
    <message>
        <source>E&amp;xit</source>
        <translation>&amp;Schließen</translation>
    </message>
    <message>
        <source>Close the help</source>
        <translation>Die Hilfe schließen</translation>
    </message>
    <message>
        <source>How to adjust the room based on reference points</source>
        <translation>So wird der Raum anhand von Referenzpunkten justiert</translation>
    </message>
</context>
<context>
    <name>MeasuringSigns</name>
    <message>
        <source>Point %1 of %2: %3 %</source>
        <translation>Punkt %1 von %2: %3 %</translation>
    </message>
    <message>
        <source>Point %1 of %2: %3 mm</source>
        <translation>Punkt %1 von %2: %3 mm</translation>
    </message>
    <message>
        <source>Point %1 of %2: failed</source>
        <translation>Punkt %1 von %2: gescheitert</translation>
    </message>
</context>
<context>
    <name>NumberBox</name>
    <message>
        <source>Only one number from %1 to %2 fits here, with at most %3 decimals after one point or one comma. The value is still %4.</source>
        <translation>Hier passt nur eine Zahl von %1 bis %2, mit höchstens %3 Nachkommastellen nach einem Punkt oder einem Komma. Der Wert ist weiterhin %4.</translation>
    </message>
</context>
<context>
    <name>PointFilePrompt</name>
    <message>
        <source>File not found</source>
        <translation>Datei nicht gefunden</translation>
    </message>
    <message>
        <source>There is no file &quot;%1&quot;.</source>
        <translation>Es gibt keine Datei „%1“.</translation>
    </message>
    <message>
        <source>Replace file</source>
        <translation>Datei ersetzen</translation>
    </message>
    <message>
        <source>&quot;%1&quot; exists already. Shall it be replaced?</source>
        <translation>„%1“ gibt es schon. Soll sie ersetzt werden?</translation>
    </message>
</context>
<context>
    <name>PointNotices</name>
    <message>
        <source>%1 reference points are still 0 0 0. Fill them in or remove them.</source>
        <translation>%1 Referenzpunkte sind noch 0 0 0. Füllen Sie sie aus oder entfernen Sie sie.</translation>
    </message>
    <message>
        <source>The measured points %1 and %2 are the same place. Measure one of them again or remove it.</source>
        <translation>Die gemessenen Punkte %1 und %2 sind dieselbe Stelle. Messen Sie einen davon neu oder entfernen Sie ihn.</translation>
    </message>
    <message>
        <source>The measured points are the mirror image of the reference points. Look whether a sign is wrong or two coordinates are exchanged.</source>
        <translation>Die gemessenen Punkte sind das Spiegelbild der Referenzpunkte. Prüfen Sie, ob ein Vorzeichen falsch ist oder zwei Koordinaten vertauscht sind.</translation>
    </message>
    <message>
        <source>Not reliable: the reference points %1 and %2 nearly coincide. Correct or remove one of them.</source>
        <translation>Nicht zuverlässig: Die Referenzpunkte %1 und %2 fallen fast zusammen. Berichtigen oder entfernen Sie einen davon.</translation>
    </message>
    <message>
        <source>The reference points lie %1 times as far apart as the measured points: are both in millimetres?</source>
        <translation>Die Referenzpunkte liegen %1-mal so weit auseinander wie die gemessenen Punkte: Sind beide in Millimetern?</translation>
    </message>
    <message>
        <source>The measured points lie %1 times as far apart as the reference points: are both in millimetres?</source>
        <translation>Die gemessenen Punkte liegen %1-mal so weit auseinander wie die Referenzpunkte: Sind beide in Millimetern?</translation>
    </message>
    <message>
        <source>Not reliable: the reference points lie nearly on a line, so the rotation about it is uncertain. Add a point beside the line.</source>
        <translation>Nicht zuverlässig: Die Referenzpunkte liegen fast auf einer Geraden, die Drehung um sie ist daher unsicher. Fügen Sie einen Punkt neben der Geraden hinzu.</translation>
    </message>
    <message>
        <source>Not reliable: the first three reference points lie on a line, or nearly so. Put three points first that are not on a line.</source>
        <translation>Nicht zuverlässig: Die ersten drei Referenzpunkte liegen ganz oder fast auf einer Geraden. Stellen Sie drei Punkte an den Anfang, die nicht auf einer Geraden liegen.</translation>
    </message>
    <message>
        <source>The points do not fit: the residual error is above the tip tolerance of the tool, %1 mm. Perhaps a point was measured at the wrong place, the coordinates are in another unit, or the workpiece was moved.</source>
        <translation>Die Punkte passen nicht zueinander: Der Restfehler liegt über der Spitzentoleranz des Werkzeugs, %1 mm. Vielleicht wurde ein Punkt an der falschen Stelle gemessen, sind die Koordinaten in einer anderen Einheit oder wurde das Werkstück bewegt.</translation>
    </message>
    <message>
        <source>Not reliable: another order of the measured points fits equally well; the object may be symmetric. Measure in the order of the table and check &quot;preserve order of points&quot;.</source>
        <translation>Nicht zuverlässig: Eine andere Reihenfolge der gemessenen Punkte passt ebenso gut; das Objekt ist vielleicht symmetrisch. Messen Sie in der Reihenfolge der Tabelle und wählen Sie „Reihenfolge der Punkte beibehalten“.</translation>
    </message>
    <message>
        <source>The scaling %1 of the room stays in force after &quot;Apply&quot;: all positions will be scaled by it. &quot;Reset scaling&quot; on the tab &quot;Fine&quot; sets it to 1.</source>
        <translation>Die Skalierung %1 des Raums gilt nach „Übernehmen“ weiter: Alle Positionen werden damit skaliert. „Skalierung zurücksetzen“ auf der Registerkarte „Fein“ setzt sie auf 1.</translation>
    </message>
    <message>
        <source>Not checked, since the search was cancelled: whether another order of the measured points fits equally well.</source>
        <translation>Nicht geprüft, da die Suche abgebrochen wurde: ob eine andere Reihenfolge der gemessenen Punkte ebenso gut passt.</translation>
    </message>
    <message>
        <source>Residual error without point %1: %2 mm. Check this point or measure it again.</source>
        <translation>Restfehler ohne Punkt %1: %2 mm. Prüfen Sie diesen Punkt oder messen Sie ihn neu.</translation>
    </message>
    <message>
        <source>Residual error without point %1: %2 mm.</source>
        <translation>Restfehler ohne Punkt %1: %2 mm.</translation>
    </message>
    <message>
        <source>Expected error: %1 mm at the centre of the reference points, %2 mm at the corner farthest from it (%3, %4, %5).</source>
        <translation>Erwarteter Fehler: %1 mm in der Mitte der Referenzpunkte, %2 mm an der Ecke, die am weitesten davon entfernt ist (%3, %4, %5).</translation>
    </message>
</context>
<context>
    <name>ReportHandout</name>
    <message>
        <source>Save report</source>
        <translation>Bericht speichern</translation>
    </message>
    <message>
        <source>Text file (*.txt)</source>
        <translation>Textdatei (*.txt)</translation>
    </message>
    <message>
        <source>The report is saved in &quot;%1&quot;.</source>
        <translation>Der Bericht ist in „%1“ gespeichert.</translation>
    </message>
    <message>
        <source>The report could not be saved in &quot;%1&quot;. An older file of that name is as it was.</source>
        <translation>Der Bericht konnte nicht in „%1“ gespeichert werden. Eine ältere Datei dieses Namens ist, wie sie war.</translation>
    </message>
    <message>
        <source>The report is copied.</source>
        <translation>Der Bericht ist kopiert.</translation>
    </message>
</context>
<context>
    <name>ResultOffers</name>
    <message>
        <source>Making the report...</source>
        <translation>Der Bericht wird erstellt ...</translation>
    </message>
</context>
<context>
    <name>RoomAdjustmentDlg2g</name>
    <message>
        <source>Camera</source>
        <translation>Kamera</translation>
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
        <source>&amp;Coarse</source>
        <translation>&amp;Grob</translation>
    </message>
    <message>
        <source>&amp;Fine</source>
        <translation>&amp;Fein</translation>
    </message>
    <message>
        <source>The controller cannot track at the moment. The room cannot be adjusted.</source>
        <translation>Beim Controller ist zurzeit kein Tracking möglich. Der Raum kann nicht justiert werden.</translation>
    </message>
    <message>
        <source>The cameras have no room calibration, or the controller does not answer. The room cannot be adjusted.</source>
        <translation>Die Kameras haben keine Raumkalibrierung, oder der Controller antwortet nicht. Der Raum kann nicht justiert werden.</translation>
    </message>
    <message>
        <source>This controller is too old to have its room adjusted.</source>
        <translation>Dieser Controller ist zu alt, um seinen Raum zu justieren.</translation>
    </message>
    <message>
        <source>The configuration of the controller is locked. The room cannot be adjusted.</source>
        <translation>Die Konfiguration des Controllers ist gesperrt. Der Raum kann nicht justiert werden.</translation>
    </message>
    <message>
        <source>Room Adjustment</source>
        <translation>Raumjustierung</translation>
    </message>
    <message>
        <source>Discard changes?</source>
        <translation>Änderungen verwerfen?</translation>
    </message>
</context>
<context>
    <name>RoomAdjustmentDlgClass</name>
    <message>
        <source>Room Adjustment</source>
        <translation>Raumjustierung</translation>
    </message>
    <message>
        <source>Accept changes and close dialog</source>
        <translation>Änderungen übernehmen und Dialog schließen</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Apply changes</source>
        <translation>Änderungen übernehmen</translation>
    </message>
    <message>
        <source>&amp;Apply</source>
        <translation>Über&amp;nehmen</translation>
    </message>
    <message>
        <source>Discard changes and close dialog</source>
        <translation>Änderungen verwerfen und Dialog schließen</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Ways to adjust the room</source>
        <translation>Wege zur Raumjustierung</translation>
    </message>
</context>
<context>
    <name>RoomAdjustmentModule2g</name>
    <message>
        <source>GUI Room Adjustment</source>
        <translation>GUI-Raumjustierung</translation>
    </message>
    <message>
        <source>&amp;Tracking</source>
        <translation>&amp;Tracking</translation>
    </message>
    <message>
        <source>Room a&amp;djustment</source>
        <translation>Raum&amp;justierung</translation>
    </message>
    <message>
        <source>Shift+F5</source>
        <translation>Shift+F5</translation>
    </message>
    <message>
        <source>Perform the room adjustment incl. COOTrans</source>
        <translation>Die Raumjustierung einschließlich COOTrans durchführen</translation>
    </message>
    <message>
        <source>Adjust the room coordinate system</source>
        <translation>Das Raumkoordinatensystem justieren</translation>
    </message>
</context>
<context>
    <name>RoomChangeText</name>
    <message>
        <source>The zero point moves by %1 mm.</source>
        <translation>Der Nullpunkt bewegt sich um %1 mm.</translation>
    </message>
    <message>
        <source>The axes turn by %1 degrees about %2.</source>
        <translation>Die Achsen drehen sich um %1 Grad um %2.</translation>
    </message>
    <message>
        <source>The scaling changes from %1 to %2.</source>
        <translation>Die Skalierung ändert sich von %1 auf %2.</translation>
    </message>
    <message>
        <source>With &quot;Apply&quot;: %1</source>
        <translation>Mit „Übernehmen“: %1</translation>
    </message>
</context>
<context>
    <name>SearchProgress</name>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
</context>
<context>
    <name>WorkProgress</name>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
</context>
<context>
    <name>bsDoubleWidget</name>
    <message>
        <source>Wheel for %1</source>
        <translation>Drehrad für %1</translation>
    </message>
</context>
<context>
    <name>xyzWidget</name>
    <message>
        <source>X :</source>
        <translation>X :</translation>
    </message>
    <message>
        <source>Y :</source>
        <translation>Y :</translation>
    </message>
    <message>
        <source>Z :</source>
        <translation>Z :</translation>
    </message>
</context>
</TS>
