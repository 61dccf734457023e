<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de">
<context>
    <name>BrindleText</name>
    <message>
        <source>Brindle</source>
        <translation>Brindle</translation>
    </message>
    <message>
        <source>Course</source>
        <translation>Kurs</translation>
    </message>
    <message>
        <source>Tools</source>
        <translation>Extras</translation>
    </message>
    <message>
        <source>Prediction</source>
        <translation>Prognose</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>Hilfe</translation>
    </message>
    <message>
        <source>New Course...</source>
        <translation>Neuer Kurs...</translation>
    </message>
    <message>
        <source>Sort Courses...</source>
        <translation>Kurse sortieren...</translation>
    </message>
    <message>
        <source>Delete Course...</source>
        <translation>Kurs löschen...</translation>
    </message>
    <message>
        <source>Progress Report...</source>
        <translation>Fortschrittsbericht...</translation>
    </message>
    <message>
        <source>Add Coursework...</source>
        <translation>Leistung hinzufügen...</translation>
    </message>
    <message>
        <source>Edit Course...</source>
        <translation>Kurs bearbeiten...</translation>
    </message>
    <message>
        <source>Edit Instructors...</source>
        <translation>Dozenten bearbeiten...</translation>
    </message>
    <message>
        <source>Edit Grading Policy...</source>
        <translation>Bewertungsschema bearbeiten...</translation>
    </message>
    <message>
        <source>About Brindle...</source>
        <translation>Über Brindle...</translation>
    </message>
    <message>
        <source>Database...</source>
        <translation>Datenbank...</translation>
    </message>
    <message>
        <source>Semester...</source>
        <translation>Semester...</translation>
    </message>
    <message>
        <source>Tab Order...</source>
        <translation>Reihenfolge der Reiter...</translation>
    </message>
    <message>
        <source>Buildings...</source>
        <translation>Gebäude...</translation>
    </message>
    <message>
        <source>All Instructors...</source>
        <translation>Alle Dozenten...</translation>
    </message>
    <message>
        <source>Institution...</source>
        <translation>Hochschule...</translation>
    </message>
    <message>
        <source>Report Card...</source>
        <translation>Zeugnis...</translation>
    </message>
    <message>
        <source>Options...</source>
        <translation>Optionen...</translation>
    </message>
    <message>
        <source>Toggle Grade Prediction</source>
        <translation>Notenprognose ein/aus</translation>
    </message>
    <message>
        <source>Turn On</source>
        <translation>Einschalten</translation>
    </message>
    <message>
        <source>Turn Off</source>
        <translation>Ausschalten</translation>
    </message>
    <message>
        <source>Show Done</source>
        <translation>Erledigte zeigen</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>Beenden</translation>
    </message>
    <message>
        <source>About Brindle</source>
        <translation>Über Brindle</translation>
    </message>
    <message>
        <source>&lt;h3&gt;Brindle %1&lt;/h3&gt;&lt;p&gt;A student organizer: courses, coursework, grades and grade point averages, semester after semester.&lt;/p&gt;</source>
        <translation>&lt;h3&gt;Brindle %1&lt;/h3&gt;&lt;p&gt;Ein Studienplaner: Kurse, Leistungen, Noten und Notendurchschnitte, Semester für Semester.&lt;/p&gt;</translation>
    </message>
    <message>
        <source>The help file %1 cannot be found.</source>
        <translation>Die Hilfedatei %1 wurde nicht gefunden.</translation>
    </message>
    <message>
        <source>%1

Start with a new, empty database? The file is kept, unchanged, under a new name beside it.</source>
        <translation>%1

Mit einer neuen, leeren Datenbank beginnen? Die Datei bleibt unverändert unter einem neuen Namen daneben erhalten.</translation>
    </message>
    <message>
        <source>%1

Brindle cannot start on this database.</source>
        <translation>%1

Brindle kann mit dieser Datenbank nicht starten.</translation>
    </message>
    <message>
        <source>The file %1 cannot be renamed; Brindle leaves it as it is and stops.</source>
        <translation>Die Datei %1 kann nicht umbenannt werden; Brindle lässt sie unverändert und beendet sich.</translation>
    </message>
    <message>
        <source>The picture %1 cannot be written.</source>
        <translation>Das Bild %1 kann nicht geschrieben werden.</translation>
    </message>
    <message>
        <source>Use the database FILE.</source>
        <translation>Die Datenbank FILE verwenden.</translation>
    </message>
    <message>
        <source>Write the main window to the PNG FILE and exit.</source>
        <translation>Das Hauptfenster in die PNG-Datei FILE schreiben und beenden.</translation>
    </message>
    <message>
        <source>Exit as soon as the main window is drawn.</source>
        <translation>Beenden, sobald das Hauptfenster gezeichnet ist.</translation>
    </message>
    <message>
        <source>Start on a fresh demo database in a temporary folder.</source>
        <translation>Mit einer frischen Demo-Datenbank in einem temporären Ordner starten.</translation>
    </message>
    <message>
        <source>Confirm Delete</source>
        <translation>Löschen bestätigen</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Löschen</translation>
    </message>
    <message>
        <source>Move Up</source>
        <translation>Nach oben</translation>
    </message>
    <message>
        <source>Move Down</source>
        <translation>Nach unten</translation>
    </message>
    <message>
        <source>Name: </source>
        <translation>Name: </translation>
    </message>
    <message>
        <source>Weight: </source>
        <translation>Gewichtung: </translation>
    </message>
    <message>
        <source>The weight must be a number of 0 or more.</source>
        <translation>Die Gewichtung muss eine Zahl von 0 oder mehr sein.</translation>
    </message>
    <message>
        <source>No Courses</source>
        <translation>Keine Kurse</translation>
    </message>
    <message>
        <source>No Score</source>
        <translation>Keine Punkte</translation>
    </message>
    <message>
        <source>Grade</source>
        <translation>Note</translation>
    </message>
    <message>
        <source>GPA</source>
        <translation>Schnitt</translation>
    </message>
    <message>
        <source>Brindle Help</source>
        <translation>Brindle-Hilfe</translation>
    </message>
    <message>
        <source>%1%</source>
        <translation>%1%</translation>
    </message>
    <message>
        <source>Grade: %1% %2</source>
        <translation>Note: %1% %2</translation>
    </message>
    <message>
        <source>New Coursework</source>
        <translation>Neue Leistung</translation>
    </message>
    <message>
        <source>Edit Coursework</source>
        <translation>Leistung bearbeiten</translation>
    </message>
    <message>
        <source>Add Coursework To...</source>
        <translation>Leistung hinzufügen zu...</translation>
    </message>
    <message>
        <source>Coursework Info</source>
        <translation>Leistungsinfo</translation>
    </message>
    <message>
        <source>Details</source>
        <translation>Details</translation>
    </message>
    <message>
        <source>Cw Type: </source>
        <translation>Leistungsart: </translation>
    </message>
    <message>
        <source>Due Date: </source>
        <translation>Fällig am: </translation>
    </message>
    <message>
        <source>Score: </source>
        <translation>Erreicht: </translation>
    </message>
    <message>
        <source>Out Of</source>
        <translation>von</translation>
    </message>
    <message>
        <source>Textbook: </source>
        <translation>Lehrbuch: </translation>
    </message>
    <message>
        <source>No Textbook</source>
        <translation>Kein Lehrbuch</translation>
    </message>
    <message>
        <source>Progress: </source>
        <translation>Fortschritt: </translation>
    </message>
    <message>
        <source>Add</source>
        <translation>Hinzufügen</translation>
    </message>
    <message>
        <source>Cw Type...</source>
        <translation>Leistungsart...</translation>
    </message>
    <message>
        <source>Textbook...</source>
        <translation>Lehrbuch...</translation>
    </message>
    <message>
        <source>Coursework name empty.</source>
        <translation>Name der Leistung leer.</translation>
    </message>
    <message>
        <source>The score must be a number of 0 or more.</source>
        <translation>Die erreichten Punkte müssen eine Zahl von 0 oder mehr sein.</translation>
    </message>
    <message>
        <source>The points possible (Out Of) must be a number of 0 or more.</source>
        <translation>Die möglichen Punkte (von) müssen eine Zahl von 0 oder mehr sein.</translation>
    </message>
    <message>
        <source>New Course</source>
        <translation>Neuer Kurs</translation>
    </message>
    <message>
        <source>Edit Course</source>
        <translation>Kurs bearbeiten</translation>
    </message>
    <message>
        <source>Basic Info</source>
        <translation>Grunddaten</translation>
    </message>
    <message>
        <source>Books</source>
        <translation>Bücher</translation>
    </message>
    <message>
        <source>Times</source>
        <translation>Zeiten</translation>
    </message>
    <message>
        <source>Room</source>
        <translation>Raum</translation>
    </message>
    <message>
        <source>Number: </source>
        <translation>Nummer: </translation>
    </message>
    <message>
        <source>Section: </source>
        <translation>Gruppe: </translation>
    </message>
    <message>
        <source>Dept: </source>
        <translation>Fachbereich: </translation>
    </message>
    <message>
        <source>Hours: </source>
        <translation>Stunden: </translation>
    </message>
    <message>
        <source>In Major</source>
        <translation>Im Hauptfach</translation>
    </message>
    <message>
        <source>Tap and hold in the list below to add and edit textbooks.</source>
        <translation>Zum Hinzufügen und Bearbeiten von Lehrbüchern in der Liste unten tippen und halten.</translation>
    </message>
    <message>
        <source>Tap and hold in the list below to add and edit times.</source>
        <translation>Zum Hinzufügen und Bearbeiten von Zeiten in der Liste unten tippen und halten.</translation>
    </message>
    <message>
        <source>Building: </source>
        <translation>Gebäude: </translation>
    </message>
    <message>
        <source>Room Number: </source>
        <translation>Raumnummer: </translation>
    </message>
    <message>
        <source>Web Site: </source>
        <translation>Webseite: </translation>
    </message>
    <message>
        <source>Advanced</source>
        <translation>Erweitert</translation>
    </message>
    <message>
        <source>Grading...</source>
        <translation>Bewertung...</translation>
    </message>
    <message>
        <source>Instructor...</source>
        <translation>Dozent...</translation>
    </message>
    <message>
        <source>Details...</source>
        <translation>Details...</translation>
    </message>
    <message>
        <source>Course Details</source>
        <translation>Kursdetails</translation>
    </message>
    <message>
        <source>You must supply a course name.</source>
        <translation>Sie müssen einen Kursnamen angeben.</translation>
    </message>
    <message>
        <source>A course with the name &apos;%1&apos; already exists.
Please enter a new course name.</source>
        <translation>Ein Kurs mit dem Namen „%1“ existiert bereits.
Bitte geben Sie einen neuen Kursnamen ein.</translation>
    </message>
    <message>
        <source>The hours must be a number from 0 up, or left empty.</source>
        <translation>Die Stunden müssen eine Zahl ab 0 sein oder leer bleiben.</translation>
    </message>
    <message>
        <source>New Textbook</source>
        <translation>Neues Lehrbuch</translation>
    </message>
    <message>
        <source>Edit Textbook</source>
        <translation>Lehrbuch bearbeiten</translation>
    </message>
    <message>
        <source>Delete Textbook</source>
        <translation>Lehrbuch löschen</translation>
    </message>
    <message>
        <source>Author: </source>
        <translation>Autor: </translation>
    </message>
    <message>
        <source>Cost: </source>
        <translation>Preis: </translation>
    </message>
    <message>
        <source>The cost must be a number from 0 up, or left empty.</source>
        <translation>Der Preis muss eine Zahl ab 0 sein oder leer bleiben.</translation>
    </message>
    <message>
        <source>%1 by %2</source>
        <translation>%1 von %2</translation>
    </message>
    <message>
        <source>%1, %2</source>
        <translation>%1, %2</translation>
    </message>
    <message>
        <source>New Time</source>
        <translation>Neue Zeit</translation>
    </message>
    <message>
        <source>Edit Time</source>
        <translation>Zeit bearbeiten</translation>
    </message>
    <message>
        <source>Delete Time</source>
        <translation>Zeit löschen</translation>
    </message>
    <message>
        <source>Start Time: </source>
        <translation>Beginn: </translation>
    </message>
    <message>
        <source>End Time: </source>
        <translation>Ende: </translation>
    </message>
    <message>
        <source>Days: </source>
        <translation>Tage: </translation>
    </message>
    <message>
        <source>Su</source>
        <translation>So</translation>
    </message>
    <message>
        <source>M</source>
        <translation>Mo</translation>
    </message>
    <message>
        <source>Tu</source>
        <translation>Di</translation>
    </message>
    <message>
        <source>W</source>
        <translation>Mi</translation>
    </message>
    <message>
        <source>Th</source>
        <translation>Do</translation>
    </message>
    <message>
        <source>F</source>
        <translation>Fr</translation>
    </message>
    <message>
        <source>Sa</source>
        <translation>Sa</translation>
    </message>
    <message>
        <source>(no days)</source>
        <translation>(keine Tage)</translation>
    </message>
    <message>
        <source>%1  %2 - %3</source>
        <translation>%1  %2 - %3</translation>
    </message>
    <message>
        <source>The end time is before the start time.
Please choose an end time at or after the start time.</source>
        <translation>Das Ende liegt vor dem Beginn.
Bitte wählen Sie ein Ende zum oder nach dem Beginn.</translation>
    </message>
    <message>
        <source>Edit Instructors</source>
        <translation>Dozenten bearbeiten</translation>
    </message>
    <message>
        <source>Current Instructors</source>
        <translation>Aktuelle Dozenten</translation>
    </message>
    <message>
        <source>Office Hours</source>
        <translation>Sprechstunden</translation>
    </message>
    <message>
        <source>Phone: </source>
        <translation>Telefon: </translation>
    </message>
    <message>
        <source>Email: </source>
        <translation>E-Mail: </translation>
    </message>
    <message>
        <source>New</source>
        <translation>Neu</translation>
    </message>
    <message>
        <source>From Previous...</source>
        <translation>Aus früheren...</translation>
    </message>
    <message>
        <source>Brand New</source>
        <translation>Ganz neu</translation>
    </message>
    <message>
        <source>Current Instructor</source>
        <translation>Aktueller Dozent</translation>
    </message>
    <message>
        <source>(Enter Name)</source>
        <translation>(Name eingeben)</translation>
    </message>
    <message>
        <source>Another course is currently using this instructor.
Continue with Delete?</source>
        <translation>Ein anderer Kurs verwendet diesen Dozenten.
Trotzdem löschen?</translation>
    </message>
    <message>
        <source>Are you sure you want to delete the instructor?</source>
        <translation>Möchten Sie den Dozenten wirklich löschen?</translation>
    </message>
    <message>
        <source>Buildings</source>
        <translation>Gebäude</translation>
    </message>
    <message>
        <source>Tap and hold in the list below to add and edit buildings.</source>
        <translation>Zum Hinzufügen und Bearbeiten von Gebäuden in der Liste unten tippen und halten.</translation>
    </message>
    <message>
        <source>New Building</source>
        <translation>Neues Gebäude</translation>
    </message>
    <message>
        <source>Edit Building</source>
        <translation>Gebäude bearbeiten</translation>
    </message>
    <message>
        <source>Delete Building</source>
        <translation>Gebäude löschen</translation>
    </message>
    <message>
        <source>Building Name:</source>
        <translation>Gebäudename:</translation>
    </message>
    <message>
        <source>Are you sure you want to delete the course &apos;%1&apos;?</source>
        <translation>Möchten Sie den Kurs „%1“ wirklich löschen?</translation>
    </message>
    <message>
        <source>Grading Policy</source>
        <translation>Bewertungsschema</translation>
    </message>
    <message>
        <source>Cw Types</source>
        <translation>Leistungsarten</translation>
    </message>
    <message>
        <source>Weighting</source>
        <translation>Gewichtung</translation>
    </message>
    <message>
        <source>Grading</source>
        <translation>Bewertung</translation>
    </message>
    <message>
        <source>Tap and hold in the list below to add and coursework types.</source>
        <translation>Zum Hinzufügen und Bearbeiten von Leistungsarten in der Liste unten tippen und halten.</translation>
    </message>
    <message>
        <source>Cw Type</source>
        <translation>Leistungsart</translation>
    </message>
    <message>
        <source>Weight</source>
        <translation>Gewicht</translation>
    </message>
    <message>
        <source>Drops</source>
        <translation>Streichungen</translation>
    </message>
    <message>
        <source>New Cw Type</source>
        <translation>Neue Leistungsart</translation>
    </message>
    <message>
        <source>Edit Cw Type</source>
        <translation>Leistungsart bearbeiten</translation>
    </message>
    <message>
        <source>Delete Cw Type</source>
        <translation>Leistungsart löschen</translation>
    </message>
    <message>
        <source>Drops: </source>
        <translation>Streichungen: </translation>
    </message>
    <message>
        <source>Weighting used in Grade Calculation</source>
        <translation>Gewichtung bei der Notenberechnung</translation>
    </message>
    <message>
        <source>None</source>
        <translation>Keine</translation>
    </message>
    <message>
        <source>By Type</source>
        <translation>Nach Art</translation>
    </message>
    <message>
        <source>Per Item</source>
        <translation>Je Leistung</translation>
    </message>
    <message>
        <source>Minimum Percent for Grade</source>
        <translation>Mindestprozent je Note</translation>
    </message>
    <message>
        <source>Enter the minimum score required to receive the grade</source>
        <translation>Geben Sie die Mindestpunktzahl für die Note ein</translation>
    </message>
    <message>
        <source>Minimum</source>
        <translation>Minimum</translation>
    </message>
    <message>
        <source>Edit Minimum Percent</source>
        <translation>Mindestprozent bearbeiten</translation>
    </message>
    <message>
        <source>Grade %1</source>
        <translation>Note %1</translation>
    </message>
    <message>
        <source>Apply</source>
        <translation>Übernehmen</translation>
    </message>
    <message>
        <source>Discard</source>
        <translation>Verwerfen</translation>
    </message>
    <message>
        <source>The minimum percent must be a number from 0 to 100.</source>
        <translation>Das Mindestprozent muss eine Zahl von 0 bis 100 sein.</translation>
    </message>
    <message>
        <source>Enter a name for the coursework type.</source>
        <translation>Geben Sie einen Namen für die Leistungsart ein.</translation>
    </message>
    <message>
        <source>Drops must be a whole number from 0 to 99.</source>
        <translation>Streichungen müssen eine ganze Zahl von 0 bis 99 sein.</translation>
    </message>
    <message>
        <source>Homework</source>
        <translation>Hausaufgabe</translation>
    </message>
    <message>
        <source>%1% %2</source>
        <translation>%1% %2</translation>
    </message>
    <message>
        <source>Grade Prediction</source>
        <translation>Notenprognose</translation>
    </message>
    <message>
        <source>Enter score each non-graded coursework will receive</source>
        <translation>Geben Sie die Punkte ein, die jede unbewertete Leistung erhalten soll</translation>
    </message>
    <message>
        <source>Edit Percent</source>
        <translation>Prozent bearbeiten</translation>
    </message>
    <message>
        <source>Clear Percent</source>
        <translation>Prozent löschen</translation>
    </message>
    <message>
        <source>Score to Give: </source>
        <translation>Zu vergebende Punkte: </translation>
    </message>
    <message>
        <source>The score to give is a percent: enter a number from 0 to 100.</source>
        <translation>Die zu vergebenden Punkte sind ein Prozentwert: Geben Sie eine Zahl von 0 bis 100 ein.</translation>
    </message>
    <message>
        <source>Progress Report</source>
        <translation>Fortschrittsbericht</translation>
    </message>
    <message>
        <source>%1 of %2 completed</source>
        <translation>%1 von %2 erledigt</translation>
    </message>
    <message>
        <source>-</source>
        <translation>-</translation>
    </message>
    <message>
        <source>No Courseworks</source>
        <translation>Keine Leistungen</translation>
    </message>
    <message>
        <source>%1 of %2 courseworks completed</source>
        <translation>%1 von %2 Leistungen erledigt</translation>
    </message>
    <message>
        <source>A+</source>
        <translation>A+</translation>
    </message>
    <message>
        <source>Institution Info</source>
        <translation>Hochschulinfo</translation>
    </message>
    <message>
        <source>Grade Scale</source>
        <translation>Notenskala</translation>
    </message>
    <message>
        <source>Set the grade points for the grade scale</source>
        <translation>Legen Sie die Notenpunkte der Notenskala fest</translation>
    </message>
    <message>
        <source>Grade Scales: </source>
        <translation>Notenskalen: </translation>
    </message>
    <message>
        <source>Current</source>
        <translation>Aktuell</translation>
    </message>
    <message>
        <source>Custom</source>
        <translation>Eigene</translation>
    </message>
    <message>
        <source>New...</source>
        <translation>Neu...</translation>
    </message>
    <message>
        <source>Edit...</source>
        <translation>Bearbeiten...</translation>
    </message>
    <message>
        <source>Points</source>
        <translation>Punkte</translation>
    </message>
    <message>
        <source>A grade scale holds at most %1 grades. Delete a grade before adding another.</source>
        <translation>Eine Notenskala hat höchstens %1 Noten. Löschen Sie eine Note, bevor Sie eine weitere hinzufügen.</translation>
    </message>
    <message>
        <source>The grade scale needs at least one grade. Add a grade or choose a scale from the list.</source>
        <translation>Die Notenskala braucht mindestens eine Note. Fügen Sie eine Note hinzu oder wählen Sie eine Skala aus der Liste.</translation>
    </message>
    <message>
        <source>Show GPA With Hours</source>
        <translation>Schnitt mit Stunden zeigen</translation>
    </message>
    <message>
        <source>Total Hours </source>
        <translation>Stunden gesamt </translation>
    </message>
    <message>
        <source>Total Points </source>
        <translation>Punkte gesamt </translation>
    </message>
    <message>
        <source>Past GPA</source>
        <translation>Früherer Schnitt</translation>
    </message>
    <message>
        <source>Past hours and past points cannot be negative.</source>
        <translation>Frühere Stunden und frühere Punkte können nicht negativ sein.</translation>
    </message>
    <message>
        <source>Hours and grade points earned before the courses kept in Brindle; they count toward the cumulative GPA.</source>
        <translation>Stunden und Notenpunkte aus der Zeit vor den Kursen in Brindle; sie zählen zum Gesamtschnitt.</translation>
    </message>
    <message>
        <source>New Grade Point</source>
        <translation>Neue Note</translation>
    </message>
    <message>
        <source>Edit Grade Point</source>
        <translation>Note bearbeiten</translation>
    </message>
    <message>
        <source>Grade Point Name</source>
        <translation>Name der Note</translation>
    </message>
    <message>
        <source>Grade Points: </source>
        <translation>Notenpunkte: </translation>
    </message>
    <message>
        <source>Enter a name for the grade.</source>
        <translation>Geben Sie einen Namen für die Note ein.</translation>
    </message>
    <message>
        <source>Grade points are a number from 0 up.</source>
        <translation>Notenpunkte sind eine Zahl ab 0.</translation>
    </message>
    <message>
        <source>Report Card</source>
        <translation>Zeugnis</translation>
    </message>
    <message>
        <source>Maj GPA</source>
        <translation>HF-Schnitt</translation>
    </message>
    <message>
        <source>Cum. GPA</source>
        <translation>Ges.-Schnitt</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1: %2</translation>
    </message>
    <message>
        <source>%1:</source>
        <translation>%1:</translation>
    </message>
    <message>
        <source>All course grade information</source>
        <translation>Alle Noten der Kurse</translation>
    </message>
    <message>
        <source>Current percent against grade minimums</source>
        <translation>Aktuelle Prozent gegen Notenminima</translation>
    </message>
    <message>
        <source>No courses to chart</source>
        <translation>Keine Kurse für das Diagramm</translation>
    </message>
    <message>
        <source>No Filter</source>
        <translation>Kein Filter</translation>
    </message>
    <message>
        <source>Past Due</source>
        <translation>Überfällig</translation>
    </message>
    <message>
        <source>Course Week</source>
        <translation>Kurswoche</translation>
    </message>
    <message>
        <source>Due By</source>
        <translation>Fällig bis</translation>
    </message>
    <message>
        <source>The database file %1 cannot be read: %2</source>
        <translation>Die Datenbankdatei %1 kann nicht gelesen werden: %2</translation>
    </message>
    <message>
        <source>The database file %1 cannot be opened: %2</source>
        <translation>Die Datenbankdatei %1 kann nicht geöffnet werden: %2</translation>
    </message>
    <message>
        <source>The file %1 is not a database.</source>
        <translation>Die Datei %1 ist keine Datenbank.</translation>
    </message>
    <message>
        <source>The file %1 is a database of another program, not a Brindle database.</source>
        <translation>Die Datei %1 ist die Datenbank eines anderen Programms, keine Brindle-Datenbank.</translation>
    </message>
    <message>
        <source>The database file %1 is damaged (%2).</source>
        <translation>Die Datenbankdatei %1 ist beschädigt (%2).</translation>
    </message>
    <message>
        <source>The database file %1 was written by a newer version of Brindle.</source>
        <translation>Die Datenbankdatei %1 wurde von einer neueren Version von Brindle geschrieben.</translation>
    </message>
    <message>
        <source>All Courses</source>
        <translation>Alle Kurse</translation>
    </message>
    <message>
        <source>Delete Coursework</source>
        <translation>Leistung löschen</translation>
    </message>
    <message>
        <source>Are you sure you want to delete this coursework?</source>
        <translation>Möchten Sie diese Leistung wirklich löschen?</translation>
    </message>
    <message>
        <source>Unofficial score from Grade Prediction Mode</source>
        <translation>Inoffizielle Punkte aus dem Notenprognose-Modus</translation>
    </message>
    <message>
        <source>%1 %2 %3</source>
        <translation>%1 %2 %3</translation>
    </message>
    <message>
        <source>Due %1</source>
        <translation>Fällig %1</translation>
    </message>
    <message>
        <source>Overdue: due %1</source>
        <translation>Überfällig: fällig %1</translation>
    </message>
    <message>
        <source>%1/%2</source>
        <translation>%1/%2</translation>
    </message>
    <message>
        <source>%1 pts</source>
        <translation>%1 Pkt.</translation>
    </message>
    <message>
        <source>--</source>
        <translation>--</translation>
    </message>
    <message>
        <source>Predicted score</source>
        <translation>Prognostizierte Punkte</translation>
    </message>
    <message>
        <source>GPA: %1</source>
        <translation>Schnitt: %1</translation>
    </message>
    <message>
        <source>GPA:</source>
        <translation>Schnitt:</translation>
    </message>
    <message>
        <source>Grade: --</source>
        <translation>Note: --</translation>
    </message>
    <message>
        <source>Grade: %1%</source>
        <translation>Note: %1%</translation>
    </message>
    <message>
        <source>Grade Prediction Mode</source>
        <translation>Notenprognose-Modus</translation>
    </message>
    <message>
        <source>Archived Semester</source>
        <translation>Archiviertes Semester</translation>
    </message>
    <message>
        <source>Exit Grade Prediction Mode</source>
        <translation>Notenprognose-Modus verlassen</translation>
    </message>
    <message>
        <source>Exit Archived Semester</source>
        <translation>Archiviertes Semester verlassen</translation>
    </message>
    <message>
        <source>The demo database cannot be made.</source>
        <translation>Die Demo-Datenbank kann nicht angelegt werden.</translation>
    </message>
    <message>
        <source>%1, %2, %3 done</source>
        <translation>%1, %2, %3 erledigt</translation>
    </message>
    <message>
        <source>%1, score %2</source>
        <translation>%1, erreicht %2</translation>
    </message>
    <message>
        <source>%1, score %2 (%3)</source>
        <translation>%1, erreicht %2 (%3)</translation>
    </message>
    <message>
        <source>View</source>
        <translation>Ansicht</translation>
    </message>
    <message>
        <source>Coursework</source>
        <translation>Leistungen</translation>
    </message>
    <message>
        <source>Semester Information</source>
        <translation>Semesterinformationen</translation>
    </message>
    <message>
        <source>Semester Name: </source>
        <translation>Semestername: </translation>
    </message>
    <message>
        <source>Archive Semester</source>
        <translation>Semester archivieren</translation>
    </message>
    <message>
        <source>View Old Semester</source>
        <translation>Altes Semester ansehen</translation>
    </message>
    <message>
        <source>Edit Semester</source>
        <translation>Semester bearbeiten</translation>
    </message>
    <message>
        <source>Delete Semester</source>
        <translation>Semester löschen</translation>
    </message>
    <message>
        <source>Archiving the current semester will make your current semester clear of courses
Are you sure you want to archive the semester?</source>
        <translation>Wenn Sie das aktuelle Semester archivieren, enthält Ihr aktuelles Semester keine Kurse mehr.
Möchten Sie das Semester wirklich archivieren?</translation>
    </message>
    <message>
        <source>Archive semester before exit?</source>
        <translation>Semester vor dem Schließen archivieren?</translation>
    </message>
    <message>
        <source>The semesters could not be saved; nothing was changed.</source>
        <translation>Die Semester konnten nicht gespeichert werden; nichts wurde geändert.</translation>
    </message>
    <message>
        <source>Check the courses to archive.</source>
        <translation>Markieren Sie die zu archivierenden Kurse.</translation>
    </message>
    <message>
        <source>Fall %1</source>
        <translation>Wintersemester %1</translation>
    </message>
    <message>
        <source>Spring %1</source>
        <translation>Sommersemester %1</translation>
    </message>
    <message>
        <source>Semester Name Required</source>
        <translation>Semestername erforderlich</translation>
    </message>
    <message>
        <source>Course Order</source>
        <translation>Kursreihenfolge</translation>
    </message>
    <message>
        <source>Set the order for the courses.</source>
        <translation>Legen Sie die Reihenfolge der Kurse fest.</translation>
    </message>
    <message>
        <source>The course order could not be saved; nothing was changed.</source>
        <translation>Die Kursreihenfolge konnte nicht gespeichert werden; nichts wurde geändert.</translation>
    </message>
    <message>
        <source>Tab Order</source>
        <translation>Reihenfolge der Reiter</translation>
    </message>
    <message>
        <source>Set the tab order for the main view.</source>
        <translation>Legen Sie die Reihenfolge der Reiter im Hauptfenster fest.</translation>
    </message>
    <message>
        <source>The tab order could not be saved; nothing was changed.</source>
        <translation>Die Reihenfolge der Reiter konnte nicht gespeichert werden; nichts wurde geändert.</translation>
    </message>
    <message>
        <source>Database Options</source>
        <translation>Datenbankoptionen</translation>
    </message>
    <message>
        <source>Backup Restore, and Clear all the courses from the database</source>
        <translation>Sichern, Wiederherstellen und Löschen aller Kurse der Datenbank</translation>
    </message>
    <message>
        <source>Backup</source>
        <translation>Sichern</translation>
    </message>
    <message>
        <source>Restore</source>
        <translation>Wiederherstellen</translation>
    </message>
    <message>
        <source>Clear Database</source>
        <translation>Datenbank leeren</translation>
    </message>
    <message>
        <source>Brindle %1-%2-%3.db</source>
        <translation>Brindle %1-%2-%3.db</translation>
    </message>
    <message>
        <source>Database Files (*.db)</source>
        <translation>Datenbankdateien (*.db)</translation>
    </message>
    <message>
        <source>All Files (*)</source>
        <translation>Alle Dateien (*)</translation>
    </message>
    <message>
        <source>The database has been backed up</source>
        <translation>Die Datenbank wurde gesichert</translation>
    </message>
    <message>
        <source>The database could not be backed up to %1.
%2</source>
        <translation>Die Datenbank konnte nicht nach %1 gesichert werden.
%2</translation>
    </message>
    <message>
        <source>The database has been restored</source>
        <translation>Die Datenbank wurde wiederhergestellt</translation>
    </message>
    <message>
        <source>Restore failed!
%1</source>
        <translation>Wiederherstellen fehlgeschlagen!
%1</translation>
    </message>
    <message>
        <source>The database has been restored
The previous database could not be removed; it is kept as %1.</source>
        <translation>Die Datenbank wurde wiederhergestellt
Die vorherige Datenbank konnte nicht entfernt werden; sie bleibt als %1 erhalten.</translation>
    </message>
    <message>
        <source>Clearing a database will remove all the courses and this change cannot be undone.

Are you sure you want to clear the databaes?</source>
        <translation>Beim Leeren der Datenbank werden alle Kurse entfernt; das lässt sich nicht rückgängig machen.

Möchten Sie die Datenbank wirklich leeren?</translation>
    </message>
    <message>
        <source>The database has been cleared</source>
        <translation>Die Datenbank wurde geleert</translation>
    </message>
    <message>
        <source>The database could not be cleared; nothing was removed.
%1</source>
        <translation>Die Datenbank konnte nicht geleert werden; nichts wurde entfernt.
%1</translation>
    </message>
    <message>
        <source>The database cannot be opened again, so Brindle stops.
%1</source>
        <translation>Die Datenbank kann nicht wieder geöffnet werden; Brindle beendet sich.
%1</translation>
    </message>
    <message>
        <source>The application state of the database file %1 cannot be read.</source>
        <translation>Der Programmzustand in der Datenbankdatei %1 kann nicht gelesen werden.</translation>
    </message>
    <message>
        <source>The Today item could not be switched on again: the settings file %1 cannot be written.</source>
        <translation>Die Heute-Anzeige konnte nicht wieder eingeschaltet werden: Die Einstellungsdatei %1 kann nicht geschrieben werden.</translation>
    </message>
    <message>
        <source>The file %1 is in the way; move or rename it, then try again.</source>
        <translation>Die Datei %1 ist im Weg; verschieben oder benennen Sie sie um und versuchen Sie es erneut.</translation>
    </message>
    <message>
        <source>The file %1 cannot be written: %2</source>
        <translation>Die Datei %1 kann nicht geschrieben werden: %2</translation>
    </message>
    <message>
        <source>The file %1 cannot be renamed to %2: %3</source>
        <translation>Die Datei %1 kann nicht in %2 umbenannt werden: %3</translation>
    </message>
    <message>
        <source>The file %1 is empty.</source>
        <translation>Die Datei %1 ist leer.</translation>
    </message>
    <message>
        <source>Grade Planner...</source>
        <translation>Notenplaner...</translation>
    </message>
    <message>
        <source>Grade &amp;Planner...</source>
        <translation>Noten&amp;planer...</translation>
    </message>
    <message>
        <source>Grade Planner</source>
        <translation>Notenplaner</translation>
    </message>
    <message>
        <source>&amp;Course:</source>
        <translation>&amp;Kurs:</translation>
    </message>
    <message>
        <source>What do I need?</source>
        <translation>Was brauche ich?</translation>
    </message>
    <message>
        <source>The lowest percent to get on every coursework not graded yet, for each grade:</source>
        <translation>Die niedrigsten Prozent, die jede noch unbewertete Leistung erreichen muss, für jede Note:</translation>
    </message>
    <message>
        <source>You need</source>
        <translation>Sie brauchen</translation>
    </message>
    <message>
        <source>already secured</source>
        <translation>schon sicher</translation>
    </message>
    <message>
        <source>not reachable</source>
        <translation>nicht erreichbar</translation>
    </message>
    <message>
        <source>For %1 (at least %2%) you need %3% on each of the %4 coursework not graded yet.</source>
        <translation>Für %1 (mindestens %2%) brauchen Sie %3% bei jeder der %4 noch unbewerteten Leistungen.</translation>
    </message>
    <message>
        <source>%1 (at least %2%) is already secured: even 0% on everything not graded yet keeps it.</source>
        <translation>%1 (mindestens %2%) ist schon sicher: Selbst 0% bei allem noch Unbewerteten halten sie.</translation>
    </message>
    <message>
        <source>%1 (at least %2%) is not reachable: 100% on everything not graded yet gives %3.</source>
        <translation>%1 (mindestens %2%) ist nicht erreichbar: 100% bei allem noch Unbewerteten ergeben %3.</translation>
    </message>
    <message>
        <source>The answers give the same percent to each of these:</source>
        <translation>Die Antworten geben jeder dieser Leistungen dieselben Prozent:</translation>
    </message>
    <message>
        <source>%1: %2 (out of %3)</source>
        <translation>%1: %2 (von %3)</translation>
    </message>
    <message>
        <source>Nothing is left to grade: every answer is the grade as it stands.</source>
        <translation>Es ist nichts mehr zu bewerten: Jede Antwort ist die Note, wie sie steht.</translation>
    </message>
    <message>
        <source>With drops, a higher percent can now and then give a lower grade (another score becomes the one dropped). Each answer holds for every higher percent too.</source>
        <translation>Mit Streichungen kann ein höherer Prozentwert mitunter eine schlechtere Note ergeben (dann wird ein anderes Ergebnis gestrichen). Jede Antwort gilt auch für jeden höheren Prozentwert.</translation>
    </message>
    <message>
        <source>Some of the course&apos;s records could not be read; the answers may be incomplete.</source>
        <translation>Einige Datensätze des Kurses konnten nicht gelesen werden; die Antworten können unvollständig sein.</translation>
    </message>
    <message>
        <source>Best case (100% on everything not graded yet): %1</source>
        <translation>Bester Fall (100% bei allem noch Unbewerteten): %1</translation>
    </message>
    <message>
        <source>Worst case (0% on everything not graded yet): %1</source>
        <translation>Schlechtester Fall (0% bei allem noch Unbewerteten): %1</translation>
    </message>
    <message>
        <source>Now: %1</source>
        <translation>Jetzt: %1</translation>
    </message>
    <message>
        <source>Final grade between %1 and %2</source>
        <translation>Endnote zwischen %1 und %2</translation>
    </message>
    <message>
        <source>Target semester GPA</source>
        <translation>Angestrebter Semesterschnitt</translation>
    </message>
    <message>
        <source>&amp;Target GPA:</source>
        <translation>&amp;Ziel-Schnitt:</translation>
    </message>
    <message>
        <source>Type the semester GPA you aim for.</source>
        <translation>Geben Sie den Semesterschnitt ein, den Sie anstreben.</translation>
    </message>
    <message>
        <source>Enter a GPA of 0 or more.</source>
        <translation>Geben Sie einen Schnitt von 0 oder mehr ein.</translation>
    </message>
    <message>
        <source>The semester has no courses.</source>
        <translation>Das Semester hat keine Kurse.</translation>
    </message>
    <message>
        <source>Already secured: even 0% on everything not graded yet gives a GPA of %1.</source>
        <translation>Schon sicher: Selbst 0% bei allem noch Unbewerteten ergeben einen Schnitt von %1.</translation>
    </message>
    <message>
        <source>Reachable with %1% on everything not graded yet, in every course (GPA %2). Each course then gets:</source>
        <translation>Erreichbar mit %1% bei allem noch Unbewerteten in jedem Kurs (Schnitt %2). Jeder Kurs erhält dann:</translation>
    </message>
    <message>
        <source>Not reachable: 100% on everything not graded yet gives a GPA of %1.</source>
        <translation>Nicht erreichbar: 100% bei allem noch Unbewerteten ergeben einen Schnitt von %1.</translation>
    </message>
    <message>
        <source>Not reachable: no course has a grade to count.</source>
        <translation>Nicht erreichbar: Kein Kurs hat eine Note, die zählt.</translation>
    </message>
    <message>
        <source>Worth checking in the grading policy:</source>
        <translation>Im Bewertungsschema zu prüfen:</translation>
    </message>
    <message>
        <source>The weights of the graded types add up to %1, not 100. Each type counts in proportion to its weight.</source>
        <translation>Die Gewichte der bewerteten Leistungsarten ergeben zusammen %1, nicht 100. Jede Art zählt im Verhältnis zu ihrem Gewicht.</translation>
    </message>
    <message>
        <source>Every graded type has weight 0, so the grade is 0% whatever the scores.</source>
        <translation>Jede bewertete Leistungsart hat das Gewicht 0, daher ist die Note 0%, gleich welche Ergebnisse.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; has weight 0: its coursework does not count toward the grade.</source>
        <translation>„%1“ hat das Gewicht 0: ihre Leistungen zählen nicht zur Note.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; has no coursework.</source>
        <translation>„%1“ hat keine Leistungen.</translation>
    </message>
    <message>
        <source>%1 coursework of &quot;%2&quot; have weight 0 and do not count under Per Item weighting.</source>
        <translation>%1 Leistungen von „%2“ haben das Gewicht 0 und zählen bei der Gewichtung „Je Leistung“ nicht.</translation>
    </message>
    <message>
        <source>No coursework of &quot;%1&quot; has a weight, so under Per Item weighting its grade is 0 divided by 0 and the course shows no grade. Give its coursework a weight.</source>
        <translation>Keine Leistung von „%1“ hat ein Gewicht; bei der Gewichtung „Je Leistung“ ist die Note daher 0 geteilt durch 0 und der Kurs zeigt keine Note. Geben Sie den Leistungen ein Gewicht.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; drops %2, but only %3 of its coursework are graded: a drop only removes a score below the type&apos;s average, so not every drop can be used.</source>
        <translation>„%1“ streicht %2, aber nur %3 ihrer Leistungen sind bewertet: Eine Streichung entfernt nur ein Ergebnis unter dem Durchschnitt der Art, daher kann nicht jede Streichung genutzt werden.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; has drops, but drops have no effect under Per Item weighting.</source>
        <translation>„%1“ hat Streichungen, aber bei der Gewichtung „Je Leistung“ wirken Streichungen nicht.</translation>
    </message>
    <message>
        <source>The minimum for %1 (%2%) is not below the minimum for %3 (%4%), so %1 is never given.</source>
        <translation>Das Minimum für %1 (%2%) liegt nicht unter dem Minimum für %3 (%4%), daher wird %1 nie vergeben.</translation>
    </message>
    <message>
        <source>• %1</source>
        <translation>• %1</translation>
    </message>
    <message>
        <source>How the grade is worked out</source>
        <translation>So wird die Note berechnet</translation>
    </message>
    <message>
        <source>adds %1 to the course percent</source>
        <translation>trägt %1 zum Kursprozent bei</translation>
    </message>
    <message>
        <source>nothing graded yet: not counted</source>
        <translation>noch nichts bewertet: zählt nicht</translation>
    </message>
    <message>
        <source>%1 / %2</source>
        <translation>%1 / %2</translation>
    </message>
    <message>
        <source>%1 / %2, weight %3</source>
        <translation>%1 / %2, Gewicht %3</translation>
    </message>
    <message>
        <source>counted</source>
        <translation>gezählt</translation>
    </message>
    <message>
        <source>counted (predicted score)</source>
        <translation>gezählt (prognostiziertes Ergebnis)</translation>
    </message>
    <message>
        <source>dropped: below the type&apos;s average, and dropping it raised the average most</source>
        <translation>gestrichen: unter dem Durchschnitt der Art, und das Streichen hob den Durchschnitt am meisten</translation>
    </message>
    <message>
        <source>not graded yet</source>
        <translation>noch nicht bewertet</translation>
    </message>
    <message>
        <source>Back</source>
        <translation>Zurück</translation>
    </message>
    <message>
        <source>Forward</source>
        <translation>Vor</translation>
    </message>
    <message>
        <source>Contents</source>
        <translation>Inhalt</translation>
    </message>
    <message>
        <source>The change could not be saved (%1). Nothing was changed.</source>
        <translation>Die Änderung konnte nicht gespeichert werden (%1). Nichts wurde geändert.</translation>
    </message>
    <message>
        <source>Only a number can be typed here.</source>
        <translation>Hier kann nur eine Zahl eingegeben werden.</translation>
    </message>
    <message>
        <source>Grade Prediction Mode: scores typed here are only tried out and are not saved.</source>
        <translation>Notenprognose-Modus: Hier eingegebene Punkte werden nur ausprobiert und nicht gespeichert.</translation>
    </message>
    <message>
        <source>Export</source>
        <translation>Exportieren</translation>
    </message>
    <message>
        <source>Tasks</source>
        <translation>Aufgaben</translation>
    </message>
    <message>
        <source>Calendar</source>
        <translation>Kalender</translation>
    </message>
    <message>
        <source>Contacts</source>
        <translation>Kontakte</translation>
    </message>
    <message>
        <source>Failed to create Task!</source>
        <translation>Aufgabe konnte nicht erstellt werden!</translation>
    </message>
    <message>
        <source>Failed to create appointment!</source>
        <translation>Termin konnte nicht erstellt werden!</translation>
    </message>
    <message>
        <source>Failed to create Contact!</source>
        <translation>Kontakt konnte nicht erstellt werden!</translation>
    </message>
    <message>
        <source>Failed to update Task!</source>
        <translation>Aufgabe konnte nicht aktualisiert werden!</translation>
    </message>
    <message>
        <source>Failed to update appointment!</source>
        <translation>Termin konnte nicht aktualisiert werden!</translation>
    </message>
    <message>
        <source>Failed to update Contact!</source>
        <translation>Kontakt konnte nicht aktualisiert werden!</translation>
    </message>
    <message>
        <source>%1 %2</source>
        <translation>%1 %2</translation>
    </message>
    <message>
        <source>Office Hours:<byte value="xd"/>
</source>
        <translation>Sprechstunden:<byte value="xd"/>
</translation>
    </message>
    <message>
        <source>%1 - %2 on %3</source>
        <translation>%3, %1 - %2</translation>
    </message>
    <message>
        <source>Brindle Tasks</source>
        <translation>Brindle-Aufgaben</translation>
    </message>
    <message>
        <source>Brindle Calendar</source>
        <translation>Brindle-Kalender</translation>
    </message>
    <message>
        <source>Brindle Contacts</source>
        <translation>Brindle-Kontakte</translation>
    </message>
    <message>
        <source>Export Folders...</source>
        <translation>Export-Ordner...</translation>
    </message>
    <message>
        <source>Export Folders</source>
        <translation>Export-Ordner</translation>
    </message>
    <message>
        <source>Brindle writes each exported task, appointment and contact as one file into these folders. Point them at the folders (vdir collections) that khal, todoman, khard or vdirsyncer use, or leave a field empty for Brindle&apos;s own folder.</source>
        <translation>Brindle schreibt jede exportierte Aufgabe, jeden Termin und jeden Kontakt als eine Datei in diese Ordner. Geben Sie die Ordner (vdir-Sammlungen) an, die khal, todoman, khard oder vdirsyncer verwenden, oder lassen Sie ein Feld leer, um Brindles eigenen Ordner zu verwenden.</translation>
    </message>
    <message>
        <source>Tasks: </source>
        <translation>Aufgaben: </translation>
    </message>
    <message>
        <source>Calendar: </source>
        <translation>Kalender: </translation>
    </message>
    <message>
        <source>Contacts: </source>
        <translation>Kontakte: </translation>
    </message>
    <message>
        <source>Browse...</source>
        <translation>Durchsuchen...</translation>
    </message>
    <message>
        <source>Choose a Folder</source>
        <translation>Ordner wählen</translation>
    </message>
    <message>
        <source>The folder %1 cannot be created or written.
Please choose another folder.</source>
        <translation>Der Ordner %1 kann nicht angelegt oder beschrieben werden.
Bitte wählen Sie einen anderen Ordner.</translation>
    </message>
    <message>
        <source>The folders could not be saved in %1.</source>
        <translation>Die Ordner konnten nicht in %1 gespeichert werden.</translation>
    </message>
    <message>
        <source>The tables of the database file %1 cannot be created: %2</source>
        <translation>Die Tabellen der Datenbankdatei %1 können nicht angelegt werden: %2</translation>
    </message>
    <message>
        <source>The settings record of the database file %1 cannot be read: %2</source>
        <translation>Der Einstellungsdatensatz der Datenbankdatei %1 kann nicht gelesen werden: %2</translation>
    </message>
    <message>
        <source>The database path %1 is a folder, not a file.</source>
        <translation>Der Datenbankpfad %1 ist ein Ordner, keine Datei.</translation>
    </message>
    <message>
        <source>the folder %1 cannot be made</source>
        <translation>der Ordner %1 kann nicht angelegt werden</translation>
    </message>
    <message>
        <source>The database file %1 is read-only, or its folder is: Brindle could not save any change. Make both writable and start Brindle again.</source>
        <translation>Die Datenbankdatei %1 oder ihr Ordner ist schreibgeschützt: Brindle konnte keine Änderung speichern. Machen Sie beide beschreibbar und starten Sie Brindle erneut.</translation>
    </message>
    <message>
        <source>The database file %1 is in use by another program, which keeps it locked. Close that program (or wait until it is done) and start Brindle again. The file is not damaged.</source>
        <translation>Die Datenbankdatei %1 wird von einem anderen Programm verwendet, das sie gesperrt hält. Schließen Sie dieses Programm (oder warten Sie, bis es fertig ist) und starten Sie Brindle erneut. Die Datei ist nicht beschädigt.</translation>
    </message>
    <message>
        <source>The database file %1 is already open in another Brindle window. Use that window, or close it and start Brindle again.</source>
        <translation>Die Datenbankdatei %1 ist bereits in einem anderen Brindle-Fenster geöffnet. Verwenden Sie dieses Fenster, oder schließen Sie es und starten Sie Brindle erneut.</translation>
    </message>
    <message>
        <source>a part of the change could not be written</source>
        <translation>ein Teil der Änderung konnte nicht geschrieben werden</translation>
    </message>
    <message>
        <source>the database ended the change before it was complete</source>
        <translation>die Datenbank hat die Änderung vor ihrem Abschluss beendet</translation>
    </message>
    <message>
        <source>the database has no record numbers left</source>
        <translation>die Datenbank hat keine freien Datensatznummern mehr</translation>
    </message>
    <message>
        <source>the record is missing</source>
        <translation>der Datensatz fehlt</translation>
    </message>
    <message>
        <source>no database is open</source>
        <translation>es ist keine Datenbank geöffnet</translation>
    </message>
    <message>
        <source>Brindle Today</source>
        <translation>Brindle Heute</translation>
    </message>
    <message>
        <source>Nothing due</source>
        <translation>Nichts fällig</translation>
    </message>
    <message>
        <source>past due</source>
        <translation>überfällig</translation>
    </message>
    <message>
        <source>paused</source>
        <translation>angehalten</translation>
    </message>
    <message>
        <source>Open the coursework with this ID in its editor on start.</source>
        <translation>Beim Start die Leistung mit dieser ID in ihrem Editor öffnen.</translation>
    </message>
    <message>
        <source>The database file %1 does not exist.</source>
        <translation>Die Datenbankdatei %1 existiert nicht.</translation>
    </message>
    <message>
        <source>The database file %1 could not be opened for reading only.</source>
        <translation>Die Datenbankdatei %1 konnte nicht schreibgeschützt geöffnet werden.</translation>
    </message>
    <message>
        <source>The database is not open.</source>
        <translation>Die Datenbank ist nicht geöffnet.</translation>
    </message>
    <message>
        <source>The coursework could not be read from the database.</source>
        <translation>Die Leistungen konnten nicht aus der Datenbank gelesen werden.</translation>
    </message>
    <message>
        <source>%1 (%2), due %3</source>
        <translation>%1 (%2), fällig %3</translation>
    </message>
    <message>
        <source>Brindle: %1 due, %2 of them past due</source>
        <translation>Brindle: %1 fällig, davon %2 überfällig</translation>
    </message>
    <message>
        <source>%1 (%2)</source>
        <translation>%1 (%2)</translation>
    </message>
    <message>
        <source>The notices sent could not be remembered in %1.</source>
        <translation>Die gesendeten Benachrichtigungen konnten nicht in %1 vermerkt werden.</translation>
    </message>
    <message>
        <source>The notices sent before could not be read from %1.</source>
        <translation>Die zuvor gesendeten Benachrichtigungen konnten nicht aus %1 gelesen werden.</translation>
    </message>
    <message>
        <source>Give desktop notices these numbers of minutes before a due time (comma-separated; default 1440,60).</source>
        <translation>Desktop-Benachrichtigungen so viele Minuten vor einem Fälligkeitstermin geben (durch Kommas getrennt; Standard 1440,60).</translation>
    </message>
    <message>
        <source>--notify wants minutes such as 1440,60, not &quot;%1&quot;.</source>
        <translation>--notify erwartet Minuten wie 1440,60, nicht „%1“.</translation>
    </message>
    <message>
        <source>Today Companion...</source>
        <translation>Heute-Begleiter...</translation>
    </message>
    <message>
        <source>Today Companion</source>
        <translation>Heute-Begleiter</translation>
    </message>
    <message>
        <source>Brindle Today sits in the system tray, lists the coursework due in the coming days and gives a notice before each due time.</source>
        <translation>Brindle Heute sitzt im Infobereich, listet die in den nächsten Tagen fälligen Leistungen auf und gibt vor jedem Fälligkeitstermin eine Benachrichtigung.</translation>
    </message>
    <message>
        <source>Start the Today companion at log-in</source>
        <translation>Heute-Begleiter bei der Anmeldung starten</translation>
    </message>
    <message>
        <source>The companion&apos;s start entry %1 is missing; is Brindle installed whole?</source>
        <translation>Der Starteintrag %1 des Begleiters fehlt; ist Brindle vollständig installiert?</translation>
    </message>
    <message>
        <source>The start entry %1 could not be written.</source>
        <translation>Der Starteintrag %1 konnte nicht geschrieben werden.</translation>
    </message>
    <message>
        <source>The start entry %1 could not be removed.</source>
        <translation>Der Starteintrag %1 konnte nicht entfernt werden.</translation>
    </message>
    <message>
        <source>&amp;Open Brindle</source>
        <translation>Brindle ö&amp;ffnen</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>&amp;Beenden</translation>
    </message>
    <message>
        <source>Brindle could not be started.</source>
        <translation>Brindle konnte nicht gestartet werden.</translation>
    </message>
    <message>
        <source>Print the list of coursework due and exit.</source>
        <translation>Die Liste der fälligen Leistungen ausgeben und beenden.</translation>
    </message>
    <message>
        <source>List what is due within the next N days (default 7).</source>
        <translation>Auflisten, was in den nächsten N Tagen fällig ist (Standard 7).</translation>
    </message>
    <message>
        <source>With --list: print JSON instead of plain text.</source>
        <translation>Mit --list: JSON statt reinem Text ausgeben.</translation>
    </message>
    <message>
        <source>Read the database FILE instead of the default one.</source>
        <translation>Die Datenbank FILE statt der voreingestellten lesen.</translation>
    </message>
    <message>
        <source>--days wants a whole number from 0 to 3650, not &quot;%1&quot;.</source>
        <translation>--days erwartet eine ganze Zahl von 0 bis 3650, nicht „%1“.</translation>
    </message>
    <message>
        <source>Choose the folder for %1</source>
        <translation>Ordner für %1 wählen</translation>
    </message>
</context>
</TS>
