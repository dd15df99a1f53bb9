<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>ApplyText</name>
    <message>
        <source>process failure: the servo could not carry it out; reboot it and try again</source>
        <translation>Ausführungsfehler: der Servo konnte es nicht ausführen; starten Sie ihn neu und versuchen Sie es noch einmal</translation>
    </message>
    <message>
        <source>instruction error: the servo does not know this instruction; is it another model?</source>
        <translation>Befehlsfehler: der Servo kennt diesen Befehl nicht; ist es ein anderes Modell?</translation>
    </message>
    <message>
        <source>checksum error: the line garbles packets; check cable and supply</source>
        <translation>Prüfsummenfehler: die Leitung verfälscht Pakete; prüfen Sie Kabel und Versorgung</translation>
    </message>
    <message>
        <source>data range error: a value is outside what the servo takes; compare each with its range</source>
        <translation>Datenbereichsfehler: ein Wert liegt außerhalb dessen, was der Servo annimmt; vergleichen Sie jeden mit seinem Bereich</translation>
    </message>
    <message>
        <source>data length error: the servo takes no block of this length; is it another model?</source>
        <translation>Datenlängenfehler: der Servo nimmt keinen Block dieser Länge an; ist es ein anderes Modell?</translation>
    </message>
    <message>
        <source>data limit error: a value is beyond one of the servo&apos;s limits; change the limit first</source>
        <translation>Datengrenzfehler: ein Wert überschreitet eine der Grenzen des Servos; ändern Sie zuerst die Grenze</translation>
    </message>
    <message>
        <source>access error: turn the motor off first</source>
        <translation>Zugriffsfehler: schalten Sie zuerst den Motor aus</translation>
    </message>
    <message>
        <source>on</source>
        <translation>ein</translation>
    </message>
    <message>
        <source>off</source>
        <translation>aus</translation>
    </message>
    <message>
        <source>applied: %1 %2</source>
        <translation>angewendet: %1 %2</translation>
    </message>
    <message>
        <source>applied: %1 values</source>
        <translation>angewendet: %1 Werte</translation>
    </message>
    <message>
        <source>Field</source>
        <translation>Feld</translation>
    </message>
    <message>
        <source>Wanted</source>
        <translation>Gewünscht</translation>
    </message>
    <message>
        <source>The servo has</source>
        <translation>Der Servo hat</translation>
    </message>
    <message>
        <source>not sent before the connection ended: %1</source>
        <translation>nicht gesendet, bevor die Verbindung endete: %1</translation>
    </message>
    <message>
        <source>error number %1, which the servo&apos;s family does not have</source>
        <translation>Fehlernummer %1, die es in der Familie des Servos nicht gibt</translation>
    </message>
    <message>
        <source>The servo has not answered since, so that what it has is not known. Check its supply and the cable; what it has is shown as soon as it answers.</source>
        <translation>Der Servo hat seither nicht geantwortet; was er hat, ist deshalb nicht bekannt. Prüfen Sie seine Versorgung und das Kabel; sobald er antwortet, wird gezeigt, was er hat.</translation>
    </message>
    <message>
        <source>The servo refused it: %1.</source>
        <translation>Der Servo hat es abgelehnt: %1.</translation>
    </message>
    <message>
        <source>The servo acknowledged the values and did not keep those above. Read them again, and check whether something else changes them.</source>
        <translation>Der Servo hat die Werte bestätigt und die obigen nicht behalten. Lesen Sie sie noch einmal, und prüfen Sie, ob etwas anderes sie ändert.</translation>
    </message>
    <message>
        <source>The servo did not acknowledge the values. Check the cable and apply them again.</source>
        <translation>Der Servo hat die Werte nicht bestätigt. Prüfen Sie das Kabel, und wenden Sie sie noch einmal an.</translation>
    </message>
    <message>
        <source>not known</source>
        <translation>nicht bekannt</translation>
    </message>
    <message>
        <source>%1 values</source>
        <translation>%1 Werte</translation>
    </message>
    <message>
        <source>not read back before the connection ended: %1</source>
        <translation>nicht zurückgelesen, bevor die Verbindung endete: %1</translation>
    </message>
    <message>
        <source>applied: the servo had these values already</source>
        <translation>angewendet: der Servo hatte diese Werte schon</translation>
    </message>
    <message>
        <source>changed and not applied before the connection ended: %1</source>
        <translation>geändert und nicht angewendet, bevor die Verbindung endete: %1</translation>
    </message>
    <message>
        <source>none</source>
        <translation>keine</translation>
    </message>
</context>
<context>
    <name>Backups</name>
    <message>
        <source>Nothing was written: the servo refuses to be read.</source>
        <translation>Nichts wurde geschrieben: Der Servo lässt sich nicht lesen.</translation>
    </message>
    <message>
        <source>Nothing was written: by now another servo answers, of another model.</source>
        <translation>Nichts wurde geschrieben: Inzwischen antwortet ein anderer Servo, von einem anderen Modell.</translation>
    </message>
    <message>
        <source>Nothing was written: the motor is on.</source>
        <translation>Nichts wurde geschrieben: Der Motor ist eingeschaltet.</translation>
    </message>
    <message>
        <source>Nothing was restored: the motor could not be switched off.</source>
        <translation>Nichts wurde wiederhergestellt: Der Motor ließ sich nicht ausschalten.</translation>
    </message>
    <message>
        <source>Nothing was written: the servo&apos;s lock is on, so that it keeps its parameters. Switch its supply off and on.</source>
        <translation>Nichts wurde geschrieben: Die Sperre des Servos ist gesetzt, sodass er seine Parameter behält. Schalten Sie seine Versorgung aus und wieder ein.</translation>
    </message>
    <message>
        <source>Nothing was written: with the status return level 0 the servo could not be read any more, so that nothing would be proved.</source>
        <translation>Nichts wurde geschrieben: Mit der Antwortstufe 0 ließe sich der Servo nicht mehr lesen, sodass nichts bewiesen wäre.</translation>
    </message>
    <message>
        <source>&amp;Back up…</source>
        <translation>S&amp;ichern…</translation>
    </message>
    <message>
        <source>&amp;Compare with…</source>
        <translation>&amp;Vergleichen mit…</translation>
    </message>
    <message>
        <source>&amp;Restore…</source>
        <translation>&amp;Wiederherstellen…</translation>
    </message>
    <message>
        <source>Connect to a servo first.</source>
        <translation>Verbinden Sie zuerst einen Servo.</translation>
    </message>
    <message>
        <source>The servo does not answer any more.</source>
        <translation>Der Servo antwortet nicht mehr.</translation>
    </message>
    <message>
        <source>Back up</source>
        <translation>Sichern</translation>
    </message>
    <message>
        <source>Not backed up</source>
        <translation>Nicht gesichert</translation>
    </message>
    <message>
        <source>Compare with</source>
        <translation>Vergleichen mit</translation>
    </message>
    <message>
        <source>Restore</source>
        <translation>Wiederherstellen</translation>
    </message>
    <message>
        <source>Not opened</source>
        <translation>Nicht geöffnet</translation>
    </message>
    <message>
        <source>Servo %1 on %2</source>
        <translation>Servo %1 an %2</translation>
    </message>
    <message>
        <source>These are the parameters of servo %1.</source>
        <translation>Das sind die Parameter von Servo %1.</translation>
    </message>
    <message>
        <source>They are from firmware %1, but the servo has firmware %2.</source>
        <translation>Sie stammen von Firmware %1, der Servo hat aber Firmware %2.</translation>
    </message>
    <message>
        <source>Another model</source>
        <translation>Ein anderes Modell</translation>
    </message>
    <message>
        <source>%1 has the parameters of a %2, model %3. The servo is a %4, model %5.</source>
        <translation>%1 enthält die Parameter eines %2, Modell %3. Der Servo ist ein %4, Modell %5.</translation>
    </message>
    <message>
        <source>What was written is not proved; the same restore again does the rest.</source>
        <translation>Was geschrieben wurde, ist nicht bewiesen; noch einmal wiederherzustellen erledigt den Rest.</translation>
    </message>
    <message>
        <source>Nothing was written.</source>
        <translation>Nichts wurde geschrieben.</translation>
    </message>
    <message>
        <source>Nothing was written: another servo has the id %1 at %2 baud. Give that one another id first.</source>
        <translation>Nichts wurde geschrieben: Ein anderer Servo hat die Id %1 bei %2 Baud. Geben Sie erst diesem eine andere Id.</translation>
    </message>
    <message>
        <source>The servo does not answer.</source>
        <translation>Der Servo antwortet nicht.</translation>
    </message>
    <message>
        <source>The port was lost.</source>
        <translation>Die Schnittstelle ging verloren.</translation>
    </message>
    <message>
        <source>Stopped.</source>
        <translation>Abgebrochen.</translation>
    </message>
    <message>
        <source>not kept in the history: %1</source>
        <translation>nicht im Verlauf festgehalten: %1</translation>
    </message>
    <message>
        <source>Before</source>
        <translation>Vorher</translation>
    </message>
    <message>
        <source>Re&amp;place a servo…</source>
        <translation>Servo &amp;ersetzen…</translation>
    </message>
    <message>
        <source>&amp;Keep the tuned gains…</source>
        <translation>Erprobte Verstärkungen &amp;behalten…</translation>
    </message>
    <message>
        <source>Histor&amp;y…</source>
        <translation>Ver&amp;lauf…</translation>
    </message>
    <message>
        <source>A restart gives the servo its stored gains and profiles again. To store those in use: menu Servo, Keep the tuned gains.</source>
        <translation>Ein Neustart gibt dem Servo wieder seine gespeicherten Verstärkungen und Profile. Um die wirksamen zu speichern: Menü Servo, Erprobte Verstärkungen behalten.</translation>
    </message>
    <message>
        <source>%1: %2 in use, %3 stored</source>
        <translation>%1: %2 wirksam, %3 gespeichert</translation>
    </message>
    <message>
        <source>gains not kept</source>
        <translation>Verstärkungen nicht gesichert</translation>
    </message>
    <message>
        <source>The history has other values for this id. Another servo may have it now, or what was changed without being stored was lost with the supply.</source>
        <translation>Der Verlauf hat andere Werte für diese Id. Vielleicht hat sie jetzt ein anderer Servo, oder was geändert und nicht gespeichert war, ging mit der Versorgung verloren.</translation>
    </message>
    <message>
        <source>Compare</source>
        <translation>Vergleichen</translation>
    </message>
    <message>
        <source>The gains and profiles in use are the stored ones.</source>
        <translation>Die wirksamen Verstärkungen und Profile sind die gespeicherten.</translation>
    </message>
    <message>
        <source>backed up: %1</source>
        <translation>gesichert: %1</translation>
    </message>
    <message>
        <source>File</source>
        <translation>Datei</translation>
    </message>
    <message>
        <source>History</source>
        <translation>Verlauf</translation>
    </message>
    <message>
        <source>the gains and profiles in use</source>
        <translation>den wirksamen Verstärkungen und Profilen</translation>
    </message>
    <message>
        <source>In use</source>
        <translation>Wirksam</translation>
    </message>
    <message>
        <source>what servo %1 had: %2</source>
        <translation>dem, was Servo %1 hatte: %2</translation>
    </message>
    <message>
        <source>Nothing was written: by now the servo has other values than those shown here. Close this and compare again.</source>
        <translation>Nichts wurde geschrieben: Inzwischen hat der Servo andere Werte als die hier gezeigten. Schließen Sie dies und vergleichen Sie erneut.</translation>
    </message>
    <message>
        <source>The file has %1 of the %2 fields that a servo keeps.</source>
        <translation>Die Datei hat %1 der %2 Felder, die ein Servo behält.</translation>
    </message>
    <message>
        <source>By now the servo may have the id %1 at %2 baud.</source>
        <translation>Vielleicht hat der Servo inzwischen die Id %1 bei %2 Baud.</translation>
    </message>
</context>
<context>
    <name>EditView</name>
    <message>
        <source>Realtime information</source>
        <translation>Echtzeitwerte</translation>
    </message>
    <message>
        <source>Position</source>
        <translation>Position</translation>
    </message>
    <message>
        <source>Angular velocity</source>
        <translation>Winkelgeschw.</translation>
    </message>
    <message>
        <source>Torque</source>
        <translation>Drehmoment</translation>
    </message>
    <message>
        <source>Voltage</source>
        <translation>Spannung</translation>
    </message>
    <message>
        <source>Phase current (Iq)</source>
        <translation>Phasenstrom (Iq)</translation>
    </message>
    <message>
        <source>Temperature</source>
        <translation>Temperatur</translation>
    </message>
    <message>
        <source>Is moving:</source>
        <translation>In Bewegung:</translation>
    </message>
    <message>
        <source>Version information</source>
        <translation>Version</translation>
    </message>
    <message>
        <source>Model number:</source>
        <translation>Modellnummer:</translation>
    </message>
    <message>
        <source>Firmware version</source>
        <translation>Firmwareversion:</translation>
    </message>
    <message>
        <source>Hardware error status</source>
        <translation>Hardwarefehler</translation>
    </message>
    <message>
        <source>Overload error</source>
        <translation>Überlast</translation>
    </message>
    <message>
        <source>Overheating error</source>
        <translation>Überhitzung</translation>
    </message>
    <message>
        <source>Angle limit error</source>
        <translation>Winkelgrenze</translation>
    </message>
    <message>
        <source>Input voltage error</source>
        <translation>Eingangsspannung</translation>
    </message>
    <message>
        <source>Encoder error</source>
        <translation>Drehgeber</translation>
    </message>
    <message>
        <source>Hall sensor error</source>
        <translation>Hallsensor</translation>
    </message>
    <message>
        <source>Status packet information</source>
        <translation>Statuspaket</translation>
    </message>
    <message>
        <source>Process failure</source>
        <translation>Verarbeitungsfehler</translation>
    </message>
    <message>
        <source>Instruction error</source>
        <translation>Befehlsfehler</translation>
    </message>
    <message>
        <source>Checksum error</source>
        <translation>Prüfsummenfehler</translation>
    </message>
    <message>
        <source>Data range error</source>
        <translation>Datenbereichsfehler</translation>
    </message>
    <message>
        <source>Data length error</source>
        <translation>Datenlängenfehler</translation>
    </message>
    <message>
        <source>Data limit error</source>
        <translation>Grenzwertfehler</translation>
    </message>
    <message>
        <source>Access error</source>
        <translation>Zugriffsfehler</translation>
    </message>
    <message>
        <source>Alert</source>
        <translation>Alarm</translation>
    </message>
    <message>
        <source>Parameters (non-volatile)</source>
        <translation>Parameter (nichtflüchtig)</translation>
    </message>
    <message>
        <source>Baud rate:</source>
        <translation>Baudrate:</translation>
    </message>
    <message>
        <source>ID</source>
        <translation>ID</translation>
    </message>
    <message>
        <source>Acknowledge response time</source>
        <translation>Antwortverzögerung</translation>
    </message>
    <message>
        <source>Operating mode:</source>
        <translation>Betriebsart:</translation>
    </message>
    <message>
        <source>Wheel</source>
        <translation>Rad</translation>
    </message>
    <message>
        <source>Joint</source>
        <translation>Gelenk</translation>
    </message>
    <message>
        <source>Multi-turn</source>
        <translation>Multiturn</translation>
    </message>
    <message>
        <source>Stepper</source>
        <translation>Schrittmotor</translation>
    </message>
    <message>
        <source>Input mode:</source>
        <translation>Eingabeart:</translation>
    </message>
    <message>
        <source>Trajectory</source>
        <translation>Trajektorie</translation>
    </message>
    <message>
        <source>Limits</source>
        <translation>Grenzwerte</translation>
    </message>
    <message>
        <source>Clockwise angle limit</source>
        <translation>Winkelgrenze rechts</translation>
    </message>
    <message>
        <source>Counter-clockwise angle limit</source>
        <translation>Winkelgrenze links</translation>
    </message>
    <message>
        <source>Temperature limit</source>
        <translation>Temperaturgrenze</translation>
    </message>
    <message>
        <source>Minimum voltage</source>
        <translation>Mindestspannung</translation>
    </message>
    <message>
        <source>Maximum voltage</source>
        <translation>Höchstspannung</translation>
    </message>
    <message>
        <source>Phase current (Iq) limit:</source>
        <translation>Phasenstromgrenze (Iq)</translation>
    </message>
    <message>
        <source>Angular velocity limit</source>
        <translation>Max. Winkelgeschw.</translation>
    </message>
    <message>
        <source>Acceleration limit</source>
        <translation>Max. Beschleunigung</translation>
    </message>
    <message>
        <source>Adjustments</source>
        <translation>Anpassungen</translation>
    </message>
    <message>
        <source>Home position offset</source>
        <translation>Nullpunktversatz</translation>
    </message>
    <message>
        <source>Moving threshold</source>
        <translation>Bewegungsschwelle</translation>
    </message>
    <message>
        <source>Default control parameters</source>
        <translation>Vorgaben der Regelung</translation>
    </message>
    <message>
        <source>Position proportional term:</source>
        <translation>P-Anteil Position:</translation>
    </message>
    <message>
        <source>Velocity feedforward term:</source>
        <translation>Vorsteuerung Geschw.:</translation>
    </message>
    <message>
        <source>Velocity proportional term:</source>
        <translation>P-Anteil Geschw.:</translation>
    </message>
    <message>
        <source>Velocity integral term:</source>
        <translation>I-Anteil Geschw.:</translation>
    </message>
    <message>
        <source>Current feedforward term:</source>
        <translation>Vorsteuerung Strom:</translation>
    </message>
    <message>
        <source>Angular velocity profile:</source>
        <translation>Geschwindigkeitsprofil</translation>
    </message>
    <message>
        <source>Acceleration profile:</source>
        <translation>Beschleunigungsprofil</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Edit</source>
        <translation>Bearbeiten</translation>
    </message>
    <message>
        <source>Parameters (volatile)</source>
        <translation>Parameter (flüchtig)</translation>
    </message>
    <message>
        <source>Target position</source>
        <translation>Zielposition</translation>
    </message>
    <message>
        <source>Proportional term:</source>
        <translation>P-Anteil:</translation>
    </message>
    <message>
        <source>Target velocity</source>
        <translation>Zielgeschwindigkeit</translation>
    </message>
    <message>
        <source>Direction:</source>
        <translation>Drehrichtung:</translation>
    </message>
    <message>
        <source>Counter-clockwise</source>
        <translation>Linkslauf</translation>
    </message>
    <message>
        <source>Clockwise</source>
        <translation>Rechtslauf</translation>
    </message>
    <message>
        <source>Integral term:</source>
        <translation>I-Anteil:</translation>
    </message>
    <message>
        <source>Target torque</source>
        <translation>Zieldrehmoment</translation>
    </message>
    <message>
        <source>Profile</source>
        <translation>Profil</translation>
    </message>
    <message>
        <source>Miscellaneous</source>
        <translation>Sonstiges</translation>
    </message>
    <message>
        <source>Enable motor</source>
        <translation>Motor einschalten</translation>
    </message>
    <message>
        <source>Pending shadow instruction:</source>
        <translation>Befehl vorgemerkt:</translation>
    </message>
    <message>
        <source>Unit fields</source>
        <translation>Physikalische Größen</translation>
    </message>
    <message>
        <source>What the servo is doing now, read from it again at each polling interval. The values are shown in the units chosen in the settings; nothing here can be edited.</source>
        <translation>Was der Servo gerade tut, in jedem Abfrageintervall neu aus ihm gelesen. Die Werte stehen in den Einheiten, die in den Einstellungen gewählt sind; bearbeiten lässt sich hier nichts.</translation>
    </message>
    <message>
        <source>Which servo is connected: its model number and the version of the firmware that it runs.</source>
        <translation>Welcher Servo verbunden ist: seine Modellnummer und die Version seiner Firmware.</translation>
    </message>
    <message>
        <source>Faults that the servo has found in itself. A box is checked for as long as the servo reports the fault.</source>
        <translation>Fehler, die der Servo an sich selbst festgestellt hat. Ein Kästchen ist angekreuzt, solange der Servo den Fehler meldet.</translation>
    </message>
    <message>
        <source>What the servo says with each of its answers. A box turns red when the servo did not understand what it was told, or could not carry it out.</source>
        <translation>Was der Servo mit jeder seiner Antworten mitteilt. Ein Kästchen wird rot, wenn der Servo einen Befehl nicht verstanden hat oder nicht ausführen konnte.</translation>
    </message>
    <message>
        <source>Settings that the servo keeps while it is without power. Press Edit, change them, and press Apply to write what you changed to the servo, or Cancel to leave it as it is. They can be edited only while the motor is not enabled. A new ID or baud rate holds at once: disconnect and connect again to reach the servo.</source>
        <translation>Einstellungen, die der Servo auch ohne Strom behält. Auf „Bearbeiten“ drücken, sie ändern und mit „Anwenden“ das Geänderte in den Servo schreiben oder ihn mit „Abbrechen“ lassen, wie er ist. Bearbeiten lassen sie sich nur, solange der Motor ausgeschaltet ist. Eine neue ID oder Baudrate gilt sofort: Um den Servo zu erreichen, die Verbindung trennen und neu herstellen.</translation>
    </message>
    <message>
        <source>Targets and control settings that the servo follows until it is switched off; it then starts with its defaults again. Press Edit, change them, and press Apply to write what you changed to the servo, or Cancel to leave it as it is. With the motor enabled, the servo moves as soon as they are applied.</source>
        <translation>Ziele und Regelparameter, denen der Servo folgt, bis er ausgeschaltet wird; danach beginnt er wieder mit seinen Vorgaben. Auf „Bearbeiten“ drücken, sie ändern und mit „Anwenden“ das Geänderte in den Servo schreiben oder ihn mit „Abbrechen“ lassen, wie er ist. Bei eingeschaltetem Motor bewegt sich der Servo, sobald sie angewendet sind.</translation>
    </message>
    <message>
        <source>Proportional term of the position</source>
        <translation>P-Anteil der Position</translation>
    </message>
    <message>
        <source>Direction of the velocity</source>
        <translation>Richtung der Geschwindigkeit</translation>
    </message>
    <message>
        <source>Proportional term of the velocity</source>
        <translation>P-Anteil der Geschwindigkeit</translation>
    </message>
    <message>
        <source>Direction of the torque</source>
        <translation>Richtung des Drehmoments</translation>
    </message>
    <message>
        <source>The program knows the registers of this servo only in part: all that it cannot read stays grey and empty, and nothing can be edited. It can be found by a search and set back to its factory values.</source>
        <translation>Das Programm kennt die Register dieses Servos nur zum Teil: Was es nicht lesen kann, bleibt grau und leer, und nichts lässt sich bearbeiten. Suchen und Zurücksetzen auf Werkswerte sind möglich.</translation>
    </message>
</context>
<context>
    <name>FieldToolTip</name>
    <message>
        <source>Register %1, bit %2: %3</source>
        <translation>Register %1, Bit %2: %3</translation>
    </message>
    <message>
        <source>Register %1: %2</source>
        <translation>Register %1: %2</translation>
    </message>
    <message>
        <source>Range: %1 to %2</source>
        <translation>Bereich: %1 bis %2</translation>
    </message>
    <message>
        <source>Range: %1 to %2 %3</source>
        <translation>Bereich: %1 bis %2 %3</translation>
    </message>
    <message>
        <source>This number is in rad/s, also where the caption tells another unit.</source>
        <translation>Diese Zahl ist in rad/s, auch wenn die Beschriftung eine andere Einheit nennt.</translation>
    </message>
    <message>
        <source>The load is more than the motor can move or hold. Take it off, then reboot the servo.</source>
        <translation>Die Last ist größer, als der Motor bewegen oder halten kann. Die Last entfernen, dann den Servo neu starten.</translation>
    </message>
    <message>
        <source>The servo is hotter than its temperature limit. Turn the motor off and let it cool down.</source>
        <translation>Der Servo ist heißer als seine Temperaturgrenze. Den Motor ausschalten und abkühlen lassen.</translation>
    </message>
    <message>
        <source>The position, or the target, is beyond the angle limits. Choose a target within them.</source>
        <translation>Die Position oder das Ziel liegt außerhalb der Winkelgrenzen. Ein Ziel innerhalb der Grenzen wählen.</translation>
    </message>
    <message>
        <source>The supply voltage is below the minimum or above the maximum voltage. Check the supply and these two limits.</source>
        <translation>Die Versorgungsspannung liegt unter der Mindest- oder über der Höchstspannung. Die Versorgung und diese beiden Grenzen prüfen.</translation>
    </message>
    <message>
        <source>The position sensor fails. Switch the supply off and on; if the error comes back, the servo needs repair.</source>
        <translation>Der Positionssensor ist gestört. Die Versorgung aus- und einschalten; kommt der Fehler wieder, muss der Servo repariert werden.</translation>
    </message>
    <message>
        <source>The motor&apos;s rotation sensor fails. Switch the supply off and on; if the error comes back, the servo needs repair.</source>
        <translation>Der Drehsensor des Motors ist gestört. Die Versorgung aus- und einschalten; kommt der Fehler wieder, muss der Servo repariert werden.</translation>
    </message>
    <message>
        <source>The servo could not carry out the last request. If this stays, reboot the servo.</source>
        <translation>Der Servo konnte die letzte Anfrage nicht ausführen. Bleibt das so, den Servo neu starten.</translation>
    </message>
    <message>
        <source>The servo does not know the last instruction. Check that it is a model that this program supports.</source>
        <translation>Der Servo kennt den letzten Befehl nicht. Prüfen, ob dieses Programm das Modell unterstützt.</translation>
    </message>
    <message>
        <source>The last request arrived damaged. Check cable and adapter, or choose a lower baud rate.</source>
        <translation>Die letzte Anfrage kam beschädigt an. Kabel und Adapter prüfen oder eine niedrigere Baudrate wählen.</translation>
    </message>
    <message>
        <source>A value was beyond what its register takes. Check what was applied last.</source>
        <translation>Ein Wert lag außerhalb dessen, was sein Register aufnimmt. Prüfen, was zuletzt angewendet wurde.</translation>
    </message>
    <message>
        <source>The last request had more or fewer bytes than its registers. Check that the servo is a model that this program supports.</source>
        <translation>Die letzte Anfrage hatte mehr oder weniger Bytes als ihre Register. Prüfen, ob dieses Programm das Modell unterstützt.</translation>
    </message>
    <message>
        <source>A value was beyond a limit that is set in the servo. Check the limits among the non-volatile parameters.</source>
        <translation>Ein Wert lag außerhalb einer im Servo eingestellten Grenze. Die Grenzen unter den nichtflüchtigen Parametern prüfen.</translation>
    </message>
    <message>
        <source>A register cannot be written, or not now. Turn the motor off before you change non-volatile parameters.</source>
        <translation>Ein Register lässt sich nicht oder jetzt nicht beschreiben. Vor dem Ändern nichtflüchtiger Parameter den Motor ausschalten.</translation>
    </message>
    <message>
        <source>The servo reports a hardware error. The boxes under &quot;Hardware error status&quot; tell which.</source>
        <translation>Der Servo meldet einen Hardwarefehler. Welchen, sagen die Kästchen unter „Hardwarefehler“.</translation>
    </message>
    <message>
        <source>This limit is a torque: its number is in %1, not in the unit of the caption.</source>
        <translation>Diese Grenze ist ein Drehmoment: Die Zahl ist in %1, nicht in der Einheit der Beschriftung.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no number and is not applied.</source>
        <translation>„%1“ ist keine Zahl und wird nicht angewendet.</translation>
    </message>
    <message>
        <source>%1 was beyond the range and has been corrected.</source>
        <translation>%1 lag außerhalb des Bereichs und wurde korrigiert.</translation>
    </message>
    <message>
        <source>Changed, not applied. The servo has: %1</source>
        <translation>Geändert, nicht angewendet. Der Servo hat: %1</translation>
    </message>
    <message>
        <source>Changed, not applied. Applied before, and not read back from the servo yet: %1</source>
        <translation>Geändert, nicht angewendet. Zuvor angewendet und noch nicht aus dem Servo zurückgelesen: %1</translation>
    </message>
    <message>
        <source>Pending: this was applied and has not been read back from the servo yet.</source>
        <translation>Ausstehend: Das wurde angewendet und noch nicht aus dem Servo zurückgelesen.</translation>
    </message>
</context>
<context>
    <name>GroupKeys</name>
    <message>
        <source>%1 edits this group, %2 applies it, and %3 cancels.</source>
        <translation>%1 bearbeitet diese Gruppe, %2 wendet die Änderungen an, und %3 bricht ab.</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1: %2</translation>
    </message>
    <message>
        <source>%1 (%2)</source>
        <translation>%1 (%2)</translation>
    </message>
</context>
<context>
    <name>HistoryKeeper</name>
    <message>
        <source>1 parameter differs from %1: another servo?</source>
        <translation>1 Parameter ist anders als am %1: ein anderer Servo?</translation>
    </message>
    <message numerus="yes">
        <source>%n parameters differ from %1: another servo?</source>
        <translation>
            <numerusform>%n Parameter ist anders als am %1: ein anderer Servo?</numerusform>
            <numerusform>%n Parameter sind anders als am %1: ein anderer Servo?</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>LimitPairs</name>
    <message>
        <source>The minimum voltage is above the maximum voltage: no supply is right for the servo then.</source>
        <translation>Die Mindestspannung liegt über der Höchstspannung: Dann ist für den Servo keine Versorgung richtig.</translation>
    </message>
    <message>
        <source>The clockwise limit is above the counter-clockwise limit: no position is allowed then.</source>
        <translation>Die Grenze im Uhrzeigersinn liegt über der gegen den Uhrzeigersinn: Dann ist keine Position erlaubt.</translation>
    </message>
</context>
<context>
    <name>LinkLine</name>
    <message>
        <source>Stop motor (F8)</source>
        <translation>Motor anhalten (F8)</translation>
    </message>
    <message>
        <source>Switches the motor off at once. That frees the shaft: what it carries may fall.</source>
        <translation>Schaltet den Motor sofort aus. Das gibt die Welle frei: Was sie trägt, kann fallen.</translation>
    </message>
    <message>
        <source>User guide</source>
        <translation>Benutzerhandbuch</translation>
    </message>
    <message>
        <source>Opens the user guide at what it says of the part of the window in use (F1).</source>
        <translation>Öffnet das Benutzerhandbuch dort, wo es den benutzten Teil des Fensters beschreibt (F1).</translation>
    </message>
    <message>
        <source>Offer</source>
        <translation>Angebot</translation>
    </message>
</context>
<context>
    <name>LinkReporter</name>
    <message>
        <source>servo %1 · %2 baud · %3</source>
        <translation>Servo %1 · %2 Baud · %3</translation>
    </message>
    <message>
        <source>No answer from servo %1 at %2 baud on %3</source>
        <translation>Keine Antwort von Servo %1 bei %2 Baud an %3</translation>
    </message>
    <message>
        <source>It is asked again each second. Check its supply, the cable, its address and its baud rate; Search finds servos at other ones.</source>
        <translation>Er wird jede Sekunde wieder gefragt. Prüfen Sie seine Versorgung, das Kabel, seine Adresse und seine Baudrate; die Suche findet Servos bei anderen.</translation>
    </message>
    <message>
        <source>The port was closed by the Disconnect before: disconnect and connect again</source>
        <translation>Der Anschluss wurde durch das Trennen davor geschlossen: trennen und wieder verbinden</translation>
    </message>
    <message>
        <source>%1 polls a second; of the last hundred %2 % answered at once, %3 % when asked again, %4 % lost</source>
        <translation>%1 Abfragen je Sekunde; von den letzten hundert %2 % sofort beantwortet, %3 % bei erneuter Frage, %4 % verloren</translation>
    </message>
    <message>
        <source>weak link</source>
        <translation>schwache Verbindung</translation>
    </message>
    <message>
        <source>not applied</source>
        <translation>nicht angewendet</translation>
    </message>
    <message>
        <source>Not applied</source>
        <translation>Nicht angewendet</translation>
    </message>
</context>
<context>
    <name>MainWindow</name>
    <message>
        <source>Zelvar Servo Manager</source>
        <translation>Zelvar Servo Manager</translation>
    </message>
    <message>
        <source>Unit fields</source>
        <translation>Physikalische Größen</translation>
    </message>
    <message>
        <source>Register fields</source>
        <translation>Register</translation>
    </message>
    <message>
        <source>Connections</source>
        <translation>Verbindungen</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>Hilfe</translation>
    </message>
    <message>
        <source>toolBar</source>
        <translation>Werkzeugleiste</translation>
    </message>
    <message>
        <source>C&amp;onnect</source>
        <translation>&amp;Verbinden</translation>
    </message>
    <message>
        <source>Ctrl+O</source>
        <translation>Ctrl+O</translation>
    </message>
    <message>
        <source>Disconnect</source>
        <translation>Trennen</translation>
    </message>
    <message>
        <source>Ctrl+D</source>
        <translation>Ctrl+D</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation>Einstellungen</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>&amp;Beenden</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>Beenden</translation>
    </message>
    <message>
        <source>Ctrl+C</source>
        <translation>Ctrl+C</translation>
    </message>
    <message>
        <source>About</source>
        <translation>Über</translation>
    </message>
    <message>
        <source>Search</source>
        <translation>Suchen</translation>
    </message>
    <message>
        <source>Shift+S</source>
        <translation>Shift+S</translation>
    </message>
    <message>
        <source>&amp;Reboot</source>
        <translation>&amp;Neu starten</translation>
    </message>
    <message>
        <source>Reboot</source>
        <translation>Neu starten</translation>
    </message>
    <message>
        <source>Ctrl+R</source>
        <translation>Ctrl+R</translation>
    </message>
    <message>
        <source>Reset</source>
        <translation>Zurücksetzen</translation>
    </message>
    <message>
        <source>&amp;Factory reset</source>
        <translation>Auf Werkseinstellungen zurücksetzen</translation>
    </message>
    <message>
        <source>Ctrl+F</source>
        <translation>Ctrl+F</translation>
    </message>
    <message>
        <source>Disconnected</source>
        <translation>Getrennt</translation>
    </message>
    <message>
        <source>Error occurred during reboot operation</source>
        <translation>Der Neustart ist fehlgeschlagen</translation>
    </message>
    <message>
        <source>Error during reboot of Zelvar servo id:%1</source>
        <translation>Fehler beim Neustart des Zelvar-Servos mit der ID %1</translation>
    </message>
    <message>
        <source>Zelvar servo id:%1 was rebooted successfully</source>
        <translation>Der Zelvar-Servo mit der ID %1 wurde neu gestartet</translation>
    </message>
    <message>
        <source>Error occurred during factory reset operation</source>
        <translation>Das Zurücksetzen auf Werkseinstellungen ist fehlgeschlagen</translation>
    </message>
    <message>
        <source>Error during factory reset of Zelvar servo id:%1</source>
        <translation>Fehler beim Zurücksetzen des Zelvar-Servos mit der ID %1 auf Werkseinstellungen</translation>
    </message>
    <message>
        <source>Factory reset of Zelvar servo id:%1 was successful</source>
        <translation>Der Zelvar-Servo mit der ID %1 wurde auf Werkseinstellungen zurückgesetzt</translation>
    </message>
    <message>
        <source>Polling interval (ms): </source>
        <translation>Abfrageintervall (ms): </translation>
    </message>
    <message>
        <source>Servo address: </source>
        <translation>Servoadresse: </translation>
    </message>
    <message>
        <source>Error</source>
        <translation>Fehler</translation>
    </message>
    <message>
        <source>Connected</source>
        <translation>Verbunden</translation>
    </message>
    <message>
        <source>No answer from servo %1</source>
        <translation>Keine Antwort von Servo %1</translation>
    </message>
    <message>
        <source>The servo now listens at address %1 and %2 baud: disconnect and connect again</source>
        <translation>Der Servo hört jetzt auf Adresse %1 mit %2 Baud: Verbindung trennen und neu herstellen</translation>
    </message>
    <message>
        <source>Success</source>
        <translation>Erfolg</translation>
    </message>
    <message>
        <source>More</source>
        <translation>Mehr</translation>
    </message>
    <message>
        <source>Servo %1 refuses to be read</source>
        <translation>Servo %1 verweigert das Lesen</translation>
    </message>
    <message>
        <source>&amp;Servo</source>
        <translation>&amp;Servo</translation>
    </message>
    <message>
        <source>&amp;Undo the last Apply</source>
        <translation>Letztes Anwenden &amp;rückgängig machen</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>&amp;Ansicht</translation>
    </message>
    <message>
        <source>&amp;Tool bar</source>
        <translation>&amp;Werkzeugleiste</translation>
    </message>
    <message>
        <source>not undone: the servo has other values by now</source>
        <translation>nicht rückgängig gemacht: der Servo hat inzwischen andere Werte</translation>
    </message>
    <message>
        <source>the AX-12 is now servo %1 at %2 baud</source>
        <translation>der AX-12 ist jetzt Servo %1 bei %2 Baud</translation>
    </message>
    <message>
        <source>Servo %1 did not answer at %2 baud on %3. Check its supply, the cable, its address and its baud rate; Search finds servos at other ones.</source>
        <translation>Servo %1 hat bei %2 Baud an %3 nicht geantwortet. Prüfen Sie seine Versorgung, das Kabel, seine Adresse und seine Baudrate; die Suche findet Servos bei anderen.</translation>
    </message>
    <message>
        <source>User &amp;guide</source>
        <translation>&amp;Benutzerhandbuch</translation>
    </message>
    <message>
        <source>not written: no servo is connected</source>
        <translation>nicht geschrieben: Es ist kein Servo verbunden</translation>
    </message>
</context>
<context>
    <name>MotorControl</name>
    <message>
        <source>In the mode Torque the servo has no position to hold.</source>
        <translation>In der Betriebsart Drehmoment hat der Servo keine Position, die er halten könnte.</translation>
    </message>
    <message>
        <source>In the mode Stepper a target is a distance to go, and no position to hold.</source>
        <translation>In der Betriebsart Schrittmotor ist ein Ziel eine Strecke und keine Position, die gehalten werden könnte.</translation>
    </message>
    <message>
        <source>Stop &amp;motor</source>
        <translation>&amp;Motor anhalten</translation>
    </message>
    <message>
        <source>&amp;Hold here</source>
        <translation>&amp;Hier halten</translation>
    </message>
    <message>
        <source>Stop &amp;all on this bus</source>
        <translation>&amp;Alle an diesem Bus anhalten</translation>
    </message>
    <message>
        <source>Tells every servo on the bus, of both families, to switch its motor off. That frees all shafts. Only the connected servo&apos;s stop is proved.</source>
        <translation>Weist jeden Servo am Bus, gleich welcher Familie, an, seinen Motor auszuschalten. Das gibt alle Wellen frei. Nur für den verbundenen Servo wird der Halt nachgewiesen.</translation>
    </message>
    <message>
        <source>not applied, since the motor was stopped: %1</source>
        <translation>nicht angewendet, da der Motor angehalten wurde: %1</translation>
    </message>
    <message>
        <source>motor stopped</source>
        <translation>Motor angehalten</translation>
    </message>
    <message>
        <source>motor stopped; the others on the bus were told, which proves nothing</source>
        <translation>Motor angehalten; die anderen am Bus wurden angewiesen, was nichts beweist</translation>
    </message>
    <message>
        <source>The servo was read after the stop: its motor is off.</source>
        <translation>Der Servo wurde danach gelesen: Sein Motor ist aus.</translation>
    </message>
    <message>
        <source>It is told to stop again and again until Disconnect.</source>
        <translation>Er wird immer wieder angewiesen anzuhalten, bis Sie die Verbindung trennen.</translation>
    </message>
    <message>
        <source>&lt;h3&gt;The motor may still be on: cut its supply.&lt;/h3&gt;&lt;p&gt;No answer of the servo has shown that its motor is off.&lt;/p&gt;&lt;p&gt;%1&lt;/p&gt;</source>
        <translation>&lt;h3&gt;Der Motor ist vielleicht noch an: Trennen Sie ihn von der Versorgung.&lt;/h3&gt;&lt;p&gt;Keine Antwort des Servos hat gezeigt, dass sein Motor aus ist.&lt;/p&gt;&lt;p&gt;%1&lt;/p&gt;</translation>
    </message>
    <message>
        <source>stop not proved: the motor may still be on</source>
        <translation>Halt nicht nachgewiesen: Der Motor ist vielleicht noch an</translation>
    </message>
    <message>
        <source>The motor may still be on</source>
        <translation>Der Motor ist vielleicht noch an</translation>
    </message>
    <message>
        <source>the motor may still be on</source>
        <translation>der Motor ist vielleicht noch an</translation>
    </message>
    <message>
        <source>stopping the motor</source>
        <translation>Motor wird angehalten</translation>
    </message>
    <message>
        <source>the motor was left on</source>
        <translation>der Motor blieb an</translation>
    </message>
    <message>
        <source>the motor was left off</source>
        <translation>der Motor blieb aus</translation>
    </message>
    <message>
        <source>motor on</source>
        <translation>Motor an</translation>
    </message>
    <message>
        <source>motor off</source>
        <translation>Motor aus</translation>
    </message>
    <message>
        <source>motor not known</source>
        <translation>Motor unbekannt</translation>
    </message>
    <message>
        <source>Connect to a servo first.</source>
        <translation>Verbinden Sie zuerst einen Servo.</translation>
    </message>
    <message>
        <source>Only servos of the Zelvar family can be held.</source>
        <translation>Nur Servos der Zelvar-Familie können gehalten werden.</translation>
    </message>
    <message>
        <source>The servo&apos;s operating mode is not known.</source>
        <translation>Die Betriebsart des Servos ist nicht bekannt.</translation>
    </message>
    <message>
        <source>Makes the place where the servo is its target, or its target velocity 0. The motor stays on, and nothing falls.</source>
        <translation>Macht den Ort, an dem der Servo ist, zu seinem Ziel oder seine Zielgeschwindigkeit zu 0. Der Motor bleibt an, und nichts fällt.</translation>
    </message>
    <message>
        <source>not applied, since the servo was to hold: %1</source>
        <translation>nicht angewendet, da der Servo halten sollte: %1</translation>
    </message>
    <message>
        <source>not held: the servo did not tell where it is</source>
        <translation>nicht gehalten: Der Servo hat nicht gesagt, wo er ist</translation>
    </message>
    <message>
        <source>holding: %1</source>
        <translation>hält: %1</translation>
    </message>
    <message>
        <source>not held: %1</source>
        <translation>nicht gehalten: %1</translation>
    </message>
    <message>
        <source>not held: the servo does not answer</source>
        <translation>nicht gehalten: der Servo antwortet nicht</translation>
    </message>
    <message>
        <source>not held: the servo still has %1</source>
        <translation>nicht gehalten: der Servo hat immer noch %1</translation>
    </message>
</context>
<context>
    <name>Plotting</name>
    <message>
        <source>&amp;Plot</source>
        <translation>&amp;Kurven</translation>
    </message>
    <message>
        <source>&amp;Record to a file…</source>
        <translation>In eine &amp;Datei aufzeichnen …</translation>
    </message>
    <message>
        <source>Record &amp;with the last ten minutes…</source>
        <translation>&amp;Mit den letzten zehn Minuten aufzeichnen …</translation>
    </message>
    <message>
        <source>Record all &amp;fields</source>
        <translation>&amp;Alle Felder aufzeichnen</translation>
    </message>
    <message>
        <source>All fields of the servo, or only those that the plot shows</source>
        <translation>Alle Felder des Servos oder nur die, die bei den Kurven zu sehen sind</translation>
    </message>
    <message>
        <source>Plot</source>
        <translation>Kurven</translation>
    </message>
    <message>
        <source>Save what is seen</source>
        <translation>Speichern, was zu sehen ist</translation>
    </message>
    <message>
        <source>Not saved</source>
        <translation>Nicht gespeichert</translation>
    </message>
    <message>
        <source>Record to a file</source>
        <translation>In eine Datei aufzeichnen</translation>
    </message>
    <message>
        <source>Not recorded</source>
        <translation>Nicht aufgezeichnet</translation>
    </message>
    <message>
        <source>Recording stopped</source>
        <translation>Aufzeichnung beendet</translation>
    </message>
    <message>
        <source>The servo that is connected now has other fields.</source>
        <translation>Der jetzt verbundene Servo hat andere Felder.</translation>
    </message>
    <message>
        <source>recording %1 · %2 samples</source>
        <translation>Aufzeichnung %1 · %2 Messwerte</translation>
    </message>
    <message>
        <source>Open a recording</source>
        <translation>Aufzeichnung öffnen</translation>
    </message>
    <message>
        <source>Not opened</source>
        <translation>Nicht geöffnet</translation>
    </message>
    <message>
        <source>Parameters not written</source>
        <translation>Parameter nicht geschrieben</translation>
    </message>
    <message>
        <source>The plot cannot be shown, since a part of the program cannot be loaded. Installing the program again helps.</source>
        <translation>Die Kurven können nicht gezeigt werden, da ein Teil des Programms nicht geladen werden kann. Eine neue Installation des Programms hilft.</translation>
    </message>
</context>
<context>
    <name>PortErrors</name>
    <message>
        <source>No serial port is chosen. Choose one in the settings.</source>
        <translation>Es ist keine serielle Schnittstelle gewählt. In den Einstellungen eine wählen.</translation>
    </message>
    <message>
        <source>The serial port %1 refuses the baud rate %2. Choose another baud rate in the settings.</source>
        <translation>Die serielle Schnittstelle %1 lehnt die Baudrate %2 ab. In den Einstellungen eine andere Baudrate wählen.</translation>
    </message>
    <message>
        <source>The serial port %1 was not found. Check that the adapter is plugged in, or choose another port in the settings.</source>
        <translation>Die serielle Schnittstelle %1 wurde nicht gefunden. Prüfen, ob der Adapter eingesteckt ist, oder in den Einstellungen eine andere Schnittstelle wählen.</translation>
    </message>
    <message>
        <source>The serial port %1 is in use by another program. Close that program and connect again.</source>
        <translation>Die serielle Schnittstelle %1 wird von einem anderen Programm benutzt. Dieses Programm schließen und erneut verbinden.</translation>
    </message>
    <message>
        <source>You have no permission to use the serial port %1. Add your user to the group &quot;%2&quot; and log in again.</source>
        <translation>Die Berechtigung für die serielle Schnittstelle %1 fehlt. Den eigenen Benutzer in die Gruppe „%2“ aufnehmen und neu anmelden.</translation>
    </message>
    <message>
        <source>The serial port %1 could not be opened: %2. Choose another port in the settings.</source>
        <translation>Die serielle Schnittstelle %1 ließ sich nicht öffnen: %2. In den Einstellungen eine andere Schnittstelle wählen.</translation>
    </message>
    <message>
        <source>The connection to the serial port %1 was lost. Check the adapter and its cable, then connect again.</source>
        <translation>Die Verbindung zur seriellen Schnittstelle %1 ist abgebrochen. Adapter und Kabel prüfen, dann erneut verbinden.</translation>
    </message>
    <message>
        <source>Another program reads from the serial port %1 too, so answers go missing. Close that program and connect again.</source>
        <translation>Auch ein anderes Programm liest von der seriellen Schnittstelle %1, sodass Antworten verloren gehen. Dieses Programm schließen und erneut verbinden.</translation>
    </message>
    <message>
        <source>You have no permission to use the serial port %1. Install the udev rule 70-zelvar-servo-manager.rules, which comes with the program&apos;s package, and plug the adapter in again.</source>
        <translation>Die Berechtigung für die serielle Schnittstelle %1 fehlt. Die udev-Regel 70-zelvar-servo-manager.rules aus dem Paket des Programms installieren und den Adapter neu einstecken.</translation>
    </message>
</context>
<context>
    <name>RegisterView</name>
    <message>
        <source>Non-volatile bank 1</source>
        <translation>Nichtflüchtig, Bank 1</translation>
    </message>
    <message>
        <source>Non-volatile bank 2</source>
        <translation>Nichtflüchtig, Bank 2</translation>
    </message>
    <message>
        <source>Volatile bank 1</source>
        <translation>Flüchtig, Bank 1</translation>
    </message>
    <message>
        <source>Volatile bank 2</source>
        <translation>Flüchtig, Bank 2</translation>
    </message>
    <message>
        <source>Address</source>
        <translation>Adresse</translation>
    </message>
    <message>
        <source>Value</source>
        <translation>Wert</translation>
    </message>
    <message>
        <source>Description</source>
        <translation>Beschreibung</translation>
    </message>
    <message>
        <source>Register fields</source>
        <translation>Register</translation>
    </message>
    <message>
        <source>The program has no register table for this servo. The tables stay empty while it is connected.</source>
        <translation>Für diesen Servo hat das Programm keine Registertabelle. Die Tabellen bleiben leer, solange er verbunden ist.</translation>
    </message>
</context>
<context>
    <name>ScanReport</name>
    <message>
        <source>Asked: ids %1 to %2 at %3 baud on %4.</source>
        <translation>Gefragt: IDs %1 bis %2 bei %3 Baud an %4.</translation>
    </message>
    <message>
        <source>At %1 baud, servos may need more than the %2 ms that each one is given and may have been missed. To make sure, choose the baud rate in the settings and connect to the servo&apos;s id.</source>
        <translation>Bei %1 Baud brauchen Servos unter Umständen länger als die %2 ms, die jeder bekommt; sie können übersehen worden sein. Um sicherzugehen, in den Einstellungen die Baudrate wählen und mit der ID des Servos verbinden.</translation>
    </message>
    <message>
        <source>The search is over.</source>
        <translation>Die Suche ist beendet.</translation>
    </message>
    <message>
        <source>The search was aborted after %1 of %2 baud rates.</source>
        <translation>Die Suche wurde nach %1 von %2 Baudraten abgebrochen.</translation>
    </message>
    <message>
        <source>Servos found: %1.</source>
        <translation>Gefundene Servos: %1.</translation>
    </message>
    <message>
        <source>No servo was asked.</source>
        <translation>Kein Servo wurde gefragt.</translation>
    </message>
    <message>
        <source>No servo answered.</source>
        <translation>Kein Servo hat geantwortet.</translation>
    </message>
</context>
<context>
    <name>SearchDialog</name>
    <message>
        <source>Device search</source>
        <translation>Gerätesuche</translation>
    </message>
    <message>
        <source>Devices</source>
        <translation>Geräte</translation>
    </message>
    <message>
        <source>Baud rate</source>
        <translation>Baudrate</translation>
    </message>
    <message>
        <source>ID</source>
        <translation>ID</translation>
    </message>
    <message>
        <source>Model</source>
        <translation>Modell</translation>
    </message>
    <message>
        <source>Parameters</source>
        <translation>Parameter</translation>
    </message>
    <message>
        <source>Serial port:</source>
        <translation>Port:</translation>
    </message>
    <message>
        <source>ID search range</source>
        <translation>ID-Suchbereich</translation>
    </message>
    <message>
        <source>Lower:</source>
        <translation>Von:</translation>
    </message>
    <message>
        <source>Upper: </source>
        <translation>Bis: </translation>
    </message>
    <message>
        <source>Baud rates</source>
        <translation>Baudraten</translation>
    </message>
    <message>
        <source>Select/Unselect</source>
        <translation>Alle/keine</translation>
    </message>
    <message>
        <source>Scan</source>
        <translation>Suchen</translation>
    </message>
    <message>
        <source>Abort</source>
        <translation>Anhalten</translation>
    </message>
    <message>
        <source>Select</source>
        <translation>Wählen</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>N/A</source>
        <translation>k. A.</translation>
    </message>
    <message>
        <source>Result of the search: %1</source>
        <translation>Ergebnis der Suche: %1</translation>
    </message>
</context>
<context>
    <name>SettingsDialog</name>
    <message>
        <source>Settings</source>
        <translation>Einstellungen</translation>
    </message>
    <message>
        <source>Connection</source>
        <translation>Verbindung</translation>
    </message>
    <message>
        <source>Select Serial Port</source>
        <translation>Serielle Schnittstelle</translation>
    </message>
    <message>
        <source>Description:</source>
        <translation>Beschreibung:</translation>
    </message>
    <message>
        <source>Manufacturer:</source>
        <translation>Hersteller:</translation>
    </message>
    <message>
        <source>Location:</source>
        <translation>Ort:</translation>
    </message>
    <message>
        <source>Vendor ID:</source>
        <translation>Hersteller-ID:</translation>
    </message>
    <message>
        <source>Product ID:</source>
        <translation>Produkt-ID:</translation>
    </message>
    <message>
        <source>Parameters</source>
        <translation>Parameter</translation>
    </message>
    <message>
        <source>BaudRate:</source>
        <translation>Baudrate:</translation>
    </message>
    <message>
        <source>Data bits:</source>
        <translation>Datenbits:</translation>
    </message>
    <message>
        <source>Parity:</source>
        <translation>Parität:</translation>
    </message>
    <message>
        <source>Stop bits:</source>
        <translation>Stoppbits:</translation>
    </message>
    <message>
        <source>Units</source>
        <translation>Einheiten</translation>
    </message>
    <message>
        <source>Angular velocity</source>
        <translation>Winkelgeschwindigkeit</translation>
    </message>
    <message>
        <source>rad/s</source>
        <translation>rad/s</translation>
    </message>
    <message>
        <source>rpm</source>
        <translation>rpm</translation>
    </message>
    <message>
        <source>Angular acceleration</source>
        <translation>Winkelbeschleunigung</translation>
    </message>
    <message>
        <source>rad/s2</source>
        <translation>rad/s2</translation>
    </message>
    <message>
        <source>Angle</source>
        <translation>Winkel</translation>
    </message>
    <message>
        <source>Radians</source>
        <translation>Radiant</translation>
    </message>
    <message>
        <source>Degrees</source>
        <translation>Grad</translation>
    </message>
    <message>
        <source>Torque</source>
        <translation>Drehmoment</translation>
    </message>
    <message>
        <source>Nm</source>
        <translation>Nm</translation>
    </message>
    <message>
        <source>kg-cm</source>
        <translation>kg-cm</translation>
    </message>
    <message>
        <source>Voltage</source>
        <translation>Spannung</translation>
    </message>
    <message>
        <source>Volts</source>
        <translation>Volt</translation>
    </message>
    <message>
        <source>Current</source>
        <translation>Strom</translation>
    </message>
    <message>
        <source>Amps</source>
        <translation>Ampere</translation>
    </message>
    <message>
        <source>mA</source>
        <translation>mA</translation>
    </message>
    <message>
        <source>Temperature</source>
        <translation>Temperatur</translation>
    </message>
    <message>
        <source>°C</source>
        <translation>°C</translation>
    </message>
    <message>
        <source>°F</source>
        <translation>°F</translation>
    </message>
    <message>
        <source>Servo data</source>
        <translation>Servodaten</translation>
    </message>
    <message>
        <source>Hex</source>
        <translation>Hexadezimal</translation>
    </message>
    <message>
        <source>Decimal</source>
        <translation>Dezimal</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>None</source>
        <translation>Keine</translation>
    </message>
    <message>
        <source>Even</source>
        <translation>Gerade</translation>
    </message>
    <message>
        <source>Odd</source>
        <translation>Ungerade</translation>
    </message>
    <message>
        <source>Mark</source>
        <translation>Mark</translation>
    </message>
    <message>
        <source>Space</source>
        <translation>Space</translation>
    </message>
    <message>
        <source>N/A</source>
        <translation>k. A.</translation>
    </message>
    <message>
        <source>Description: %1</source>
        <translation>Beschreibung: %1</translation>
    </message>
    <message>
        <source>Manufacturer: %1</source>
        <translation>Hersteller: %1</translation>
    </message>
    <message>
        <source>Location: %1</source>
        <translation>Ort: %1</translation>
    </message>
    <message>
        <source>Vendor Identifier: %1</source>
        <translation>Hersteller-ID: %1</translation>
    </message>
    <message>
        <source>Product Identifier: %1</source>
        <translation>Produkt-ID: %1</translation>
    </message>
</context>
<context>
    <name>SwitchOnMark</name>
    <message>
        <source>&amp;Set the target to the position first</source>
        <translation>Das Ziel zuerst auf die Position &amp;setzen</translation>
    </message>
    <message>
        <source>The servo will move by %1 as soon as this is applied.</source>
        <translation>Der Servo bewegt sich um %1, sobald dies angewendet wird.</translation>
    </message>
</context>
<context>
    <name>UiGroupHelper</name>
    <message>
        <source>Apply</source>
        <translation>Anwenden</translation>
    </message>
    <message>
        <source>Edit</source>
        <translation>Bearbeiten</translation>
    </message>
    <message>
        <source>The servo listens at another id or baud rate by now: disconnect and connect again.</source>
        <translation>Der Servo hört inzwischen auf eine andere ID oder Baudrate: Verbindung trennen und neu herstellen.</translation>
    </message>
    <message>
        <source>The motor is on, and the servo takes non-volatile parameters only while it is off: untick &quot;Enable motor&quot; and apply that first.</source>
        <translation>Der Motor ist eingeschaltet, und der Servo nimmt nichtflüchtige Parameter nur an, solange er ausgeschaltet ist: Zuerst das Häkchen bei „Motor einschalten“ entfernen und das anwenden.</translation>
    </message>
</context>
<context>
    <name>UnitsHelper</name>
    <message>
        <source>radians</source>
        <translation>Radiant</translation>
    </message>
    <message>
        <source>degrees</source>
        <translation>Grad</translation>
    </message>
</context>
<context>
    <name>ZelvarCheckBox</name>
    <message>
        <source>on</source>
        <translation>ein</translation>
    </message>
    <message>
        <source>off</source>
        <translation>aus</translation>
    </message>
</context>
<context>
    <name>ZelvarGroupToolButton</name>
    <message>
        <source>No servo is connected.</source>
        <translation>Es ist kein Servo verbunden.</translation>
    </message>
    <message>
        <source>The servo has not answered yet.</source>
        <translation>Der Servo hat noch nicht geantwortet.</translation>
    </message>
    <message>
        <source>The parameters of this model cannot be edited.</source>
        <translation>Die Parameter dieses Modells lassen sich nicht bearbeiten.</translation>
    </message>
    <message>
        <source>The first values of the servo have not come yet.</source>
        <translation>Die ersten Werte des Servos sind noch nicht da.</translation>
    </message>
    <message>
        <source>Nothing has been changed yet.</source>
        <translation>Es wurde noch nichts geändert.</translation>
    </message>
</context>
<context>
    <name>ZelvarSerialPortInterface</name>
    <message>
        <source>Simulated servo bus</source>
        <translation>Simulierter Servobus</translation>
    </message>
</context>
<context>
    <name>ZelvarV1</name>
    <message>
        <source>Firmware version</source>
        <translation>Firmwareversion</translation>
    </message>
    <message>
        <source>ID</source>
        <translation>ID</translation>
    </message>
    <message>
        <source>Baud rate</source>
        <translation>Baudrate</translation>
    </message>
    <message>
        <source>Acknowledge response time</source>
        <translation>Antwortverzögerung</translation>
    </message>
    <message>
        <source>Operating mode</source>
        <translation>Betriebsart</translation>
    </message>
    <message>
        <source>Upper temperature limit</source>
        <translation>Obere Temperaturgrenze</translation>
    </message>
    <message>
        <source>Lower input voltage limit</source>
        <translation>Mindestspannung am Eingang</translation>
    </message>
    <message>
        <source>Upper input voltage limit</source>
        <translation>Höchstspannung am Eingang</translation>
    </message>
    <message>
        <source>Input mode</source>
        <translation>Eingabeart</translation>
    </message>
    <message>
        <source>Control enable</source>
        <translation>Regelung eingeschaltet</translation>
    </message>
    <message>
        <source>Pending shadow instruction</source>
        <translation>Befehl vorgemerkt</translation>
    </message>
    <message>
        <source>Actual voltage</source>
        <translation>Istspannung</translation>
    </message>
    <message>
        <source>Actual temperature</source>
        <translation>Isttemperatur</translation>
    </message>
    <message>
        <source>Moving</source>
        <translation>In Bewegung</translation>
    </message>
    <message>
        <source>Hardware error status</source>
        <translation>Hardwarefehler</translation>
    </message>
    <message>
        <source>Debug 1 (u8)</source>
        <translation>Debug 1 (u8)</translation>
    </message>
    <message>
        <source>Debug 2 (u8)</source>
        <translation>Debug 2 (u8)</translation>
    </message>
    <message>
        <source>%1 (byte %2)</source>
        <translation>%1 (Byte %2)</translation>
    </message>
    <message>
        <source>%1 (lower)</source>
        <translation>%1 (Low-Byte)</translation>
    </message>
    <message>
        <source>%1 (upper)</source>
        <translation>%1 (High-Byte)</translation>
    </message>
    <message>
        <source>Model number</source>
        <translation>Modellnummer</translation>
    </message>
    <message>
        <source>CW angle limit</source>
        <translation>Rechte Winkelgrenze</translation>
    </message>
    <message>
        <source>CCW angle limit</source>
        <translation>Linke Winkelgrenze</translation>
    </message>
    <message>
        <source>Torque limit</source>
        <translation>Drehmomentgrenze</translation>
    </message>
    <message>
        <source>Angular velocity limit</source>
        <translation>Grenze der Winkelgeschwindigkeit</translation>
    </message>
    <message>
        <source>Acceleration limit</source>
        <translation>Beschleunigungsgrenze</translation>
    </message>
    <message>
        <source>Home position offset</source>
        <translation>Nullpunktversatz</translation>
    </message>
    <message>
        <source>Moving threshold</source>
        <translation>Bewegungsschwelle</translation>
    </message>
    <message>
        <source>Default position proportional gain</source>
        <translation>Position P-Verstärkung, Vorgabe</translation>
    </message>
    <message>
        <source>Default velocity feedforward gain</source>
        <translation>Geschw. Vorsteuerung, Vorgabe</translation>
    </message>
    <message>
        <source>Default current feedforward gain</source>
        <translation>Strom Vorsteuerung, Vorgabe</translation>
    </message>
    <message>
        <source>Default velocity integral gain</source>
        <translation>Geschw. I-Verstärkung, Vorgabe</translation>
    </message>
    <message>
        <source>Default velocity proportional gain</source>
        <translation>Geschw. P-Verstärkung, Vorgabe</translation>
    </message>
    <message>
        <source>Default angular velocity profile</source>
        <translation>Geschw.-Profil, Vorgabe</translation>
    </message>
    <message>
        <source>Default acceleration profile</source>
        <translation>Beschl.-Profil, Vorgabe</translation>
    </message>
    <message>
        <source>Position proportional gain</source>
        <translation>Position P-Verstärkung</translation>
    </message>
    <message>
        <source>Velocity feedforward gain</source>
        <translation>Geschw. Vorsteuerung</translation>
    </message>
    <message>
        <source>Current feedforward gain</source>
        <translation>Strom Vorsteuerung</translation>
    </message>
    <message>
        <source>Velocity integral gain</source>
        <translation>Geschw. I-Verstärkung</translation>
    </message>
    <message>
        <source>Velocity proportional gain</source>
        <translation>Geschw. P-Verstärkung</translation>
    </message>
    <message>
        <source>Angular velocity profile</source>
        <translation>Geschw.-Profil</translation>
    </message>
    <message>
        <source>Acceleration profile</source>
        <translation>Beschl.-Profil</translation>
    </message>
    <message>
        <source>Target position</source>
        <translation>Zielposition</translation>
    </message>
    <message>
        <source>Target angular velocity</source>
        <translation>Ziel-Winkelgeschwindigkeit</translation>
    </message>
    <message>
        <source>Target torque</source>
        <translation>Zieldrehmoment</translation>
    </message>
    <message>
        <source>Actual position</source>
        <translation>Istposition</translation>
    </message>
    <message>
        <source>Actual angular velocity</source>
        <translation>Ist-Winkelgeschwindigkeit</translation>
    </message>
    <message>
        <source>Actual torque</source>
        <translation>Istdrehmoment</translation>
    </message>
    <message>
        <source>Actual phase current</source>
        <translation>Ist-Phasenstrom</translation>
    </message>
    <message>
        <source>Debug 3</source>
        <translation>Debug 3</translation>
    </message>
    <message>
        <source>Debug 4</source>
        <translation>Debug 4</translation>
    </message>
</context>
<context>
    <name>chart::Charts</name>
    <message>
        <source>%1 is of another version of the program.</source>
        <translation>%1 gehört zu einer anderen Version des Programms.</translation>
    </message>
</context>
<context>
    <name>dialogs::ComparisonDialog</name>
    <message>
        <source>Only &amp;differences</source>
        <translation>Nur &amp;Unterschiede</translation>
    </message>
    <message>
        <source>Switch the &amp;motor off first, which frees the shaft: what it carries may fall</source>
        <translation>Zuerst den &amp;Motor ausschalten, was die Welle freigibt: Was sie trägt, kann fallen</translation>
    </message>
    <message>
        <source>Restore</source>
        <translation>Wiederherstellen</translation>
    </message>
    <message>
        <source>Compare</source>
        <translation>Vergleichen</translation>
    </message>
    <message>
        <source>%1, compared with %2</source>
        <translation>%1, verglichen mit %2</translation>
    </message>
    <message>
        <source>Fields</source>
        <translation>Felder</translation>
    </message>
    <message>
        <source>&amp;Copy as text</source>
        <translation>Als Text &amp;kopieren</translation>
    </message>
    <message>
        <source>&amp;Restore</source>
        <translation>&amp;Wiederherstellen</translation>
    </message>
    <message>
        <source>&amp;Restore…</source>
        <translation>&amp;Wiederherstellen…</translation>
    </message>
    <message>
        <source>Stop</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>%1 fields compared, %2 equal, %3 different</source>
        <translation>%1 Felder verglichen, %2 gleich, %3 verschieden</translation>
    </message>
    <message>
        <source>%1; %2 ticked</source>
        <translation>%1; %2 angekreuzt</translation>
    </message>
    <message>
        <source>Writing and reading back …</source>
        <translation>Schreiben und Zurücklesen …</translation>
    </message>
    <message>
        <source>%1 fields compared, %2 equal, %3 written, %4 refused, %5 left out</source>
        <translation>%1 Felder verglichen, %2 gleich, %3 geschrieben, %4 abgelehnt, %5 ausgelassen</translation>
    </message>
    <message>
        <source>Restored and read back: %1.</source>
        <translation>Wiederhergestellt und zurückgelesen: %1.</translation>
    </message>
    <message>
        <source>Not all is as it was to be: %1.</source>
        <translation>Nicht alles ist, wie es sein sollte: %1.</translation>
    </message>
    <message>
        <source>What is ticked is written. Id, baud rate and home position offset belong to one servo: they are left out unless you tick them.</source>
        <translation>Was angekreuzt ist, wird geschrieben. Id, Baudrate und Nullpunktversatz gehören zu einem einzelnen Servo: Sie werden ausgelassen, wenn Sie sie nicht ankreuzen.</translation>
    </message>
    <message>
        <source>… and %1 more, which the tip of this text tells</source>
        <translation>… und %1 mehr, siehe den Hinweis zu diesem Text</translation>
    </message>
    <message>
        <source>Keep the tuned gains</source>
        <translation>Erprobte Verstärkungen behalten</translation>
    </message>
    <message>
        <source>&amp;Keep</source>
        <translation>&amp;Behalten</translation>
    </message>
    <message>
        <source>Kept and read back: %1.</source>
        <translation>Behalten und zurückgelesen: %1.</translation>
    </message>
    <message>
        <source>What is ticked is written, id and baud rate last. The home position offset belongs to one servo: it is left out unless you tick it.</source>
        <translation>Was angekreuzt ist, wird geschrieben, Id und Baudrate zuletzt. Der Nullpunktversatz gehört zu einem einzelnen Servo: Er wird ausgelassen, wenn Sie ihn nicht ankreuzen.</translation>
    </message>
    <message>
        <source>Replace a servo</source>
        <translation>Servo ersetzen</translation>
    </message>
</context>
<context>
    <name>dialogs::ComparisonModel</name>
    <message>
        <source>%1, register %2</source>
        <translation>%1, Register %2</translation>
    </message>
    <message>
        <source>Field</source>
        <translation>Feld</translation>
    </message>
    <message>
        <source>The servo had</source>
        <translation>Der Servo hatte</translation>
    </message>
    <message>
        <source>The servo has</source>
        <translation>Der Servo hat</translation>
    </message>
    <message>
        <source>Result</source>
        <translation>Ergebnis</translation>
    </message>
    <message>
        <source>%1 (raw %2)</source>
        <translation>%1 (roh %2)</translation>
    </message>
    <message>
        <source>left out</source>
        <translation>ausgelassen</translation>
    </message>
    <message>
        <source>refused (%1); it has %2</source>
        <translation>abgelehnt (%1); er hat %2</translation>
    </message>
    <message>
        <source>not written, since not all before it was taken</source>
        <translation>nicht geschrieben, da nicht alles davor angenommen wurde</translation>
    </message>
    <message>
        <source>not kept; it has %1</source>
        <translation>nicht behalten; er hat %1</translation>
    </message>
    <message>
        <source>written</source>
        <translation>geschrieben</translation>
    </message>
</context>
<context>
    <name>dialogs::HistoryDialog</name>
    <message>
        <source>&amp;Compare with the servo</source>
        <translation>Mit dem Servo &amp;vergleichen</translation>
    </message>
    <message>
        <source>&amp;Restore…</source>
        <translation>&amp;Wiederherstellen …</translation>
    </message>
    <message>
        <source>&amp;Save as…</source>
        <translation>&amp;Speichern unter …</translation>
    </message>
    <message>
        <source>History</source>
        <translation>Verlauf</translation>
    </message>
    <message>
        <source>Kept parameters</source>
        <translation>Aufbewahrte Parameter</translation>
    </message>
    <message>
        <source>Re&amp;name</source>
        <translation>&amp;Umbenennen</translation>
    </message>
    <message>
        <source>&amp;Pin or unpin</source>
        <translation>&amp;Anheften oder lösen</translation>
    </message>
    <message>
        <source>Ser&amp;vo:</source>
        <translation>S&amp;ervo:</translation>
    </message>
    <message>
        <source>servo %1 · model %2 · last kept %3</source>
        <translation>Servo %1 · Modell %2 · zuletzt %3</translation>
    </message>
    <message>
        <source>servo %1 · model %2</source>
        <translation>Servo %1 · Modell %2</translation>
    </message>
    <message>
        <source>No servo is connected.</source>
        <translation>Es ist kein Servo verbunden.</translation>
    </message>
    <message>
        <source>The connected servo is of another family.</source>
        <translation>Der verbundene Servo ist von einer anderen Familie.</translation>
    </message>
    <message>
        <source>No entry that can be read is selected.</source>
        <translation>Es ist kein lesbarer Eintrag ausgewählt.</translation>
    </message>
    <message>
        <source>Nothing is kept yet. What a servo has is kept at each Connect and after each Apply, when it has changed.</source>
        <translation>Noch ist nichts aufbewahrt. Was ein Servo hat, wird bei jedem Verbinden und nach jedem Anwenden aufbewahrt, wenn es sich geändert hat.</translation>
    </message>
    <message>
        <source>Restore a &amp;file…</source>
        <translation>&amp;Datei wiederherstellen…</translation>
    </message>
    <message>
        <source>Restore</source>
        <translation>Wiederherstellen</translation>
    </message>
    <message>
        <source>Choose what the connected servo is to get back: from what is kept of it, or a file.</source>
        <translation>Wählen Sie, was der verbundene Servo zurückbekommen soll: aus dem, was von ihm festgehalten ist, oder eine Datei.</translation>
    </message>
    <message>
        <source>Replace a servo</source>
        <translation>Servo ersetzen</translation>
    </message>
    <message>
        <source>Choose the servo that is missing and what it had. The connected servo gets it, id and baud rate last.</source>
        <translation>Wählen Sie den Servo, der fehlt, und was er hatte. Der verbundene Servo bekommt es, Id und Baudrate zuletzt.</translation>
    </message>
</context>
<context>
    <name>dialogs::HistoryModel</name>
    <message>
        <source>Time</source>
        <translation>Zeit</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>Pinned</source>
        <translation>Angeheftet</translation>
    </message>
    <message>
        <source>Changed</source>
        <translation>Geändert</translation>
    </message>
    <message>
        <source>%1 %2 → %3</source>
        <comment>field, value before, value</comment>
        <translation>%1 %2 → %3</translation>
    </message>
    <message>
        <source>cannot be read: %1</source>
        <translation>nicht lesbar: %1</translation>
    </message>
    <message>
        <source>first kept</source>
        <translation>zuerst aufbewahrt</translation>
    </message>
    <message>
        <source>pinned</source>
        <translation>angeheftet</translation>
    </message>
    <message>
        <source>not pinned</source>
        <translation>nicht angeheftet</translation>
    </message>
    <message>
        <source>Press F2, or click twice, to give it a name.</source>
        <translation>Drücken Sie F2 oder klicken Sie zweimal, um dem Eintrag einen Namen zu geben.</translation>
    </message>
    <message>
        <source>The latest %1 entries of a servo stay; a pinned one stays however many follow.</source>
        <translation>Die letzten %1 Einträge eines Servos bleiben; ein angehefteter bleibt, wie viele auch folgen.</translation>
    </message>
</context>
<context>
    <name>guide::GuideWindow</name>
    <message>
        <source>User guide</source>
        <translation>Benutzerhandbuch</translation>
    </message>
    <message>
        <source>This page of the user guide is missing: %1. Install the program anew.</source>
        <translation>Diese Seite des Benutzerhandbuchs fehlt: %1. Installieren Sie das Programm neu.</translation>
    </message>
</context>
<context>
    <name>plot::PlotPane</name>
    <message>
        <source>%1 s</source>
        <translation>%1 s</translation>
    </message>
    <message>
        <source>%1 min</source>
        <translation>%1 min</translation>
    </message>
    <message>
        <source>Pause</source>
        <translation>Pause</translation>
    </message>
    <message>
        <source>Holds what is seen; samples are still kept</source>
        <translation>Hält fest, was zu sehen ist; Messwerte werden weiter behalten</translation>
    </message>
    <message>
        <source>Live</source>
        <translation>Live</translation>
    </message>
    <message>
        <source>Back to the newest sample</source>
        <translation>Zurück zum neuesten Messwert</translation>
    </message>
    <message>
        <source>Fields</source>
        <translation>Felder</translation>
    </message>
    <message>
        <source>Chooses what is shown</source>
        <translation>Wählt aus, was zu sehen ist</translation>
    </message>
    <message>
        <source>Close recording</source>
        <translation>Aufzeichnung schließen</translation>
    </message>
    <message>
        <source>Shows the connected servo again</source>
        <translation>Zeigt wieder den verbundenen Servo</translation>
    </message>
    <message>
        <source>Time span</source>
        <translation>Zeitspanne</translation>
    </message>
    <message>
        <source>Time span; the wheel zooms, and dragging goes back in time</source>
        <translation>Zeitspanne; das Mausrad vergrößert, und Ziehen führt in der Zeit zurück</translation>
    </message>
    <message>
        <source>&amp;Never</source>
        <translation>&amp;Nie</translation>
    </message>
    <message>
        <source>At each &amp;Apply</source>
        <translation>Bei jedem &amp;Anwenden</translation>
    </message>
    <message>
        <source>At a &amp;hardware error</source>
        <translation>Bei einem &amp;Hardwarefehler</translation>
    </message>
    <message>
        <source>Hold</source>
        <translation>Anhalten</translation>
    </message>
    <message>
        <source>Holds what is seen when something happens, with the time before it</source>
        <translation>Hält fest, was zu sehen ist, wenn etwas geschieht, mit der Zeit davor</translation>
    </message>
    <message>
        <source>Picture as &amp;PNG…</source>
        <translation>Bild als &amp;PNG …</translation>
    </message>
    <message>
        <source>Picture as &amp;SVG…</source>
        <translation>Bild als &amp;SVG …</translation>
    </message>
    <message>
        <source>Values as &amp;CSV…</source>
        <translation>Werte als &amp;CSV …</translation>
    </message>
    <message>
        <source>File</source>
        <translation>Datei</translation>
    </message>
    <message>
        <source>Saves what is seen, or opens a recording</source>
        <translation>Speichert, was zu sehen ist, oder öffnet eine Aufzeichnung</translation>
    </message>
    <message>
        <source>&amp;Open a recording…</source>
        <translation>Aufzeichnung ö&amp;ffnen …</translation>
    </message>
    <message>
        <source>&amp;State</source>
        <translation>&amp;Zustand</translation>
    </message>
    <message>
        <source>&amp;Volatile parameters</source>
        <translation>&amp;Flüchtige Parameter</translation>
    </message>
    <message>
        <source>&amp;Non-volatile parameters</source>
        <translation>&amp;Nichtflüchtige Parameter</translation>
    </message>
    <message>
        <source>Close %1</source>
        <translation>%1 schließen</translation>
    </message>
    <message>
        <source>Plot</source>
        <translation>Kurven</translation>
    </message>
</context>
<context>
    <name>plot::RangeDialog</name>
    <message>
        <source>Fixed range</source>
        <translation>Fester Bereich</translation>
    </message>
    <message>
        <source>&amp;From:</source>
        <translation>&amp;Von:</translation>
    </message>
    <message>
        <source>&amp;To:</source>
        <translation>&amp;Bis:</translation>
    </message>
</context>
<context>
    <name>plot::StepRow</name>
    <message>
        <source>%1 s</source>
        <translation>%1 s</translation>
    </message>
    <message>
        <source>Target</source>
        <translation>Ziel</translation>
    </message>
    <message>
        <source>The target that was applied</source>
        <translation>Das Ziel, das angewendet wurde</translation>
    </message>
    <message>
        <source>Rise</source>
        <translation>Anstieg</translation>
    </message>
    <message>
        <source>Rise time: from 10 % to 90 % of the way to the target</source>
        <translation>Anstiegszeit: von 10 % bis 90 % des Wegs zum Ziel</translation>
    </message>
    <message>
        <source>Overshoot</source>
        <translation>Überschwingen</translation>
    </message>
    <message>
        <source>How far the value went beyond the target, in percent of the way</source>
        <translation>Wie weit der Wert über das Ziel hinausging, in Prozent des Wegs</translation>
    </message>
    <message>
        <source>Settling</source>
        <translation>Einschwingen</translation>
    </message>
    <message>
        <source>Settling time: from the Apply until the value stays within 2 % of the way around the target</source>
        <translation>Einschwingzeit: vom Anwenden an, bis der Wert bis auf 2 % des Wegs beim Ziel bleibt</translation>
    </message>
    <message>
        <source>Off by</source>
        <translation>Rest</translation>
    </message>
    <message>
        <source>What was left to the target at the last sample, ten seconds after the Apply at most</source>
        <translation>Was beim letzten Messwert, höchstens zehn Sekunden nach dem Anwenden, bis zum Ziel fehlte</translation>
    </message>
    <message>
        <source>%1 %</source>
        <translation>%1 %</translation>
    </message>
    <message>
        <source>&amp;Write these gains back</source>
        <translation>Parameter &amp;zurückschreiben</translation>
    </message>
    <message>
        <source>This step</source>
        <translation>Dieser Sprung</translation>
    </message>
    <message>
        <source>Step before</source>
        <translation>Sprung davor</translation>
    </message>
    <message>
        <source>Gives the servo the gains again that it had at the step before</source>
        <translation>Gibt dem Servo die Regelparameter wieder, die er beim Sprung davor hatte</translation>
    </message>
    <message>
        <source>The grey curve, moved and scaled to this step</source>
        <translation>Die graue Kurve, auf diesen Sprung verschoben und skaliert</translation>
    </message>
    <message>
        <source>The gains are those of the step before</source>
        <translation>Die Regelparameter sind die des Sprungs davor</translation>
    </message>
    <message>
        <source>Gains: %1</source>
        <translation>Regelparameter: %1</translation>
    </message>
</context>
<context>
    <name>plot::Strip</name>
    <message>
        <source>%1 s</source>
        <translation>%1 s</translation>
    </message>
</context>
<context>
    <name>plot::StripArea</name>
    <message>
        <source>Curves</source>
        <translation>Kurven</translation>
    </message>
    <message>
        <source>at %1 s</source>
        <translation>bei %1 s</translation>
    </message>
    <message>
        <source>cursor</source>
        <translation>Cursor</translation>
    </message>
    <message>
        <source>reference</source>
        <translation>Bezug</translation>
    </message>
    <message>
        <source>difference</source>
        <translation>Unterschied</translation>
    </message>
    <message>
        <source>time [s]</source>
        <translation>Zeit [s]</translation>
    </message>
    <message>
        <source>not applied: %1</source>
        <translation>nicht angewendet: %1</translation>
    </message>
    <message>
        <source>&amp;Copy values</source>
        <translation>Werte &amp;kopieren</translation>
    </message>
    <message>
        <source>C&amp;lear the cursors</source>
        <translation>Cursor &amp;entfernen</translation>
    </message>
    <message>
        <source>&amp;Automatic range</source>
        <translation>&amp;Automatischer Bereich</translation>
    </message>
    <message>
        <source>&amp;Fixed range…</source>
        <translation>&amp;Fester Bereich …</translation>
    </message>
</context>
<context>
    <name>profile</name>
    <message>
        <source>The names and pins in %1 cannot be read: %2</source>
        <translation>Die Namen und Anheftungen in %1 sind nicht lesbar: %2</translation>
    </message>
    <message>
        <source>Another program is using the history.</source>
        <translation>Ein anderes Programm benutzt gerade den Verlauf.</translation>
    </message>
    <message>
        <source>Nothing can be written to %1: is the disk full, or the folder write-protected?</source>
        <translation>In %1 kann nichts geschrieben werden: Ist der Datenträger voll oder der Ordner schreibgeschützt?</translation>
    </message>
    <message>
        <source>The folder %1 cannot be made.</source>
        <translation>Der Ordner %1 kann nicht angelegt werden.</translation>
    </message>
    <message>
        <source>This entry is not there any more.</source>
        <translation>Diesen Eintrag gibt es nicht mehr.</translation>
    </message>
    <message>
        <source>line 1: it is too large to be a file of servo parameters</source>
        <translation>Zeile 1: zu groß für eine Datei mit Servoparametern</translation>
    </message>
    <message>
        <source>&quot;%1&quot; means nothing here; there are: %2</source>
        <translation>„%1“ bedeutet hier nichts; es gibt: %2</translation>
    </message>
    <message>
        <source>it is no file of servo parameters, which says &quot;format&quot;: &quot;%1&quot;</source>
        <translation>keine Datei mit Servoparametern, in der &quot;format&quot;: &quot;%1&quot; steht</translation>
    </message>
    <message>
        <source>&quot;version&quot; has to be a number from 1 on</source>
        <translation>„version“ muss eine Zahl ab 1 sein</translation>
    </message>
    <message>
        <source>it has the version %1, which a later program has written; this one knows %2</source>
        <translation>sie hat die Version %1, die ein neueres Programm geschrieben hat; dieses kennt %2</translation>
    </message>
    <message>
        <source>&quot;%1&quot; has to be a number from 0 to %2</source>
        <translation>„%1“ muss eine Zahl von 0 bis %2 sein</translation>
    </message>
    <message>
        <source>&quot;partial&quot; has to be true or false</source>
        <translation>„partial“ muss true oder false sein</translation>
    </message>
    <message>
        <source>a servo of model %1 is a %2, not what this says</source>
        <translation>ein Servo des Modells %1 ist ein %2, nicht, was hier steht</translation>
    </message>
    <message>
        <source>&quot;time&quot; has to be like 2026-11-22T08:30:00Z</source>
        <translation>„time“ muss wie 2026-11-22T08:30:00Z aussehen</translation>
    </message>
    <message>
        <source>a partial file has no bytes; remove them</source>
        <translation>eine Teildatei hat keine Bytes; entfernen Sie sie</translation>
    </message>
    <message>
        <source>the registers&apos; bytes are missing; a file of some fields says &quot;partial&quot;: true</source>
        <translation>die Bytes der Register fehlen; in einer Datei mit einigen Feldern steht &quot;partial&quot;: true</translation>
    </message>
    <message>
        <source>a servo of model %1 has %2 bytes from register %3 on</source>
        <translation>ein Servo des Modells %1 hat %2 Bytes ab Register %3</translation>
    </message>
    <message>
        <source>the bytes do not fit their CRC, so one of the two is damaged; edit values in &quot;fields&quot; only</source>
        <translation>die Bytes passen nicht zu ihrer CRC, also ist eines von beiden beschädigt; ändern Sie Werte nur in „fields“</translation>
    </message>
    <message>
        <source>&quot;fields&quot; has to be an object</source>
        <translation>„fields“ muss ein Objekt sein</translation>
    </message>
    <message>
        <source>a %1 keeps no field &quot;%2&quot;</source>
        <translation>ein %1 bewahrt kein Feld „%2“ auf</translation>
    </message>
    <message>
        <source>&quot;%1&quot; has to be an object</source>
        <translation>„%1“ muss ein Objekt sein</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is missing; a file of some fields says &quot;partial&quot;: true</source>
        <translation>„%1“ fehlt; in einer Datei mit einigen Feldern steht &quot;partial&quot;: true</translation>
    </message>
    <message>
        <source>&quot;raw&quot; has to be a whole number</source>
        <translation>„raw“ muss eine ganze Zahl sein</translation>
    </message>
    <message>
        <source>&quot;%1&quot; has neither &quot;raw&quot; nor &quot;value&quot;</source>
        <translation>„%1“ hat weder „raw“ noch „value“</translation>
    </message>
    <message>
        <source>&quot;raw&quot; and &quot;value&quot; disagree, and neither is what the servo had; remove one</source>
        <translation>„raw“ und „value“ widersprechen sich, und keines ist, was der Servo hatte; entfernen Sie eines</translation>
    </message>
    <message>
        <source>%1 is outside what &quot;%2&quot; takes, raw values from %3 to %4</source>
        <translation>%1 liegt außerhalb dessen, was „%2“ annimmt, Rohwerte von %3 bis %4</translation>
    </message>
    <message>
        <source>%1 is no value of &quot;%2&quot;</source>
        <translation>%1 ist kein Wert von „%2“</translation>
    </message>
    <message>
        <source>&quot;%1&quot; has no unit</source>
        <translation>„%1“ hat keine Einheit</translation>
    </message>
    <message>
        <source>&quot;%1&quot; needs a unit: %2</source>
        <translation>„%1“ braucht eine Einheit: %2</translation>
    </message>
    <message>
        <source> or </source>
        <translation> oder </translation>
    </message>
    <message>
        <source>&quot;%1&quot; was edited: %2 is taken, the servo had %3</source>
        <translation>„%1“ wurde geändert: %2 gilt, der Servo hatte %3</translation>
    </message>
    <message>
        <source>line %1: %2</source>
        <translation>Zeile %1: %2</translation>
    </message>
    <message>
        <source>this name is there twice, or written with escapes</source>
        <translation>dieser Name steht zweimal da oder ist mit Escape-Zeichen geschrieben</translation>
    </message>
    <message>
        <source>it is no JSON object: %1</source>
        <translation>kein JSON-Objekt: %1</translation>
    </message>
</context>
<context>
    <name>recording</name>
    <message>
        <source>This is no recording: its first line does not have the titles of one.</source>
        <translation>Das ist keine Aufzeichnung: Die erste Zeile hat nicht deren Titel.</translation>
    </message>
    <message>
        <source>Line %1 is not what a recording has.</source>
        <translation>Zeile %1 ist nicht die einer Aufzeichnung.</translation>
    </message>
    <message>
        <source>The titles name fields that no servo known here has.</source>
        <translation>Die Titel nennen Felder, die kein hier bekannter Servo hat.</translation>
    </message>
    <message>
        <source>The file is not there any more.</source>
        <translation>Die Datei ist nicht mehr da.</translation>
    </message>
</context>
<context>
    <name>storage</name>
    <message>
        <source>It is no regular file.</source>
        <translation>Es ist keine gewöhnliche Datei.</translation>
    </message>
</context>
</TS>
