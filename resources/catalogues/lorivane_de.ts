<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>Lorivane</name>
    <message>
        <source>Lorivane</source>
        <translation>Lorivane</translation>
    </message>
    <message>
        <source>ZELKAN</source>
        <translation>ZELKAN</translation>
    </message>
    <message>
        <source>File</source>
        <translation>Datei</translation>
    </message>
    <message>
        <source>Open...</source>
        <translation>Öffnen...</translation>
    </message>
    <message>
        <source>Delete All MRUFs</source>
        <translation>Liste der zuletzt verwendeten Dateien leeren</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>Beenden</translation>
    </message>
    <message>
        <source>View</source>
        <translation>Ansicht</translation>
    </message>
    <message>
        <source>First Image [Home]</source>
        <translation>Erstes Bild [Pos1]</translation>
    </message>
    <message>
        <source>Previous Image [Backspace]</source>
        <translation>Voriges Bild [Rücktaste]</translation>
    </message>
    <message>
        <source>Next Image [Space]</source>
        <translation>Nächstes Bild [Leertaste]</translation>
    </message>
    <message>
        <source>Last Image [End]</source>
        <translation>Letztes Bild [Ende]</translation>
    </message>
    <message>
        <source>Full Screen [Enter]</source>
        <translation>Vollbild [Eingabe]</translation>
    </message>
    <message>
        <source>Don't Fit Anything</source>
        <translation>Nichts anpassen</translation>
    </message>
    <message>
        <source>Fit Window to Image</source>
        <translation>Fenster an Bild anpassen</translation>
    </message>
    <message>
        <source>Fit Image to Window</source>
        <translation>Bild an Fenster anpassen</translation>
    </message>
    <message>
        <source>Scale Image to Window</source>
        <translation>Bild auf Fenstergröße skalieren</translation>
    </message>
    <message>
        <source>Scale Image to Window Width</source>
        <translation>Bild auf Fensterbreite skalieren</translation>
    </message>
    <message>
        <source>Scale Image to Window Height</source>
        <translation>Bild auf Fensterhöhe skalieren</translation>
    </message>
    <message>
        <source>Enable Comment</source>
        <translation>Kommentar anzeigen</translation>
    </message>
    <message>
        <source>Picture</source>
        <translation>Bild</translation>
    </message>
    <message>
        <source>Smooth Scaling</source>
        <translation>Glatt skalieren</translation>
    </message>
    <message>
        <source>Tool</source>
        <translation>Werkzeuge</translation>
    </message>
    <message>
        <source>Show Image Information...</source>
        <translation>Bildinformationen anzeigen...</translation>
    </message>
    <message>
        <source>Preferences...</source>
        <translation>Einstellungen...</translation>
    </message>
    <message>
        <source>ZELKAN Common Preferences...</source>
        <translation>Gemeinsame ZELKAN-Einstellungen...</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>Hilfe</translation>
    </message>
    <message>
        <source>About...</source>
        <translation>Über...</translation>
    </message>
    <message>
        <source>Just a moment...</source>
        <translation>Einen Moment bitte...</translation>
    </message>
    <message>
        <source>%AppName%: Open</source>
        <translation>%AppName%: Öffnen</translation>
    </message>
    <message>
        <source>* %AppName% *</source>
        <translation>* %AppName% *</translation>
    </message>
    <message>
        <source>Understand</source>
        <translation>Verstanden</translation>
    </message>
    <message>
        <source>Yes</source>
        <translation>Ja</translation>
    </message>
    <message>
        <source>No</source>
        <translation>Nein</translation>
    </message>
    <message>
        <source>Delete All</source>
        <translation>Alle entfernen</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Defaults</source>
        <translation>Standardwerte</translation>
    </message>
    <message>
        <source>Preferences</source>
        <translation>Einstellungen</translation>
    </message>
    <message>
        <source>Comment</source>
        <translation>Kommentar</translation>
    </message>
    <message>
        <source>Position</source>
        <translation>Position</translation>
    </message>
    <message>
        <source>Top</source>
        <translation>Oben</translation>
    </message>
    <message>
        <source>Bottom</source>
        <translation>Unten</translation>
    </message>
    <message>
        <source>Margin: </source>
        <translation>Außenabstand: </translation>
    </message>
    <message>
        <source>Padding: </source>
        <translation>Innenabstand: </translation>
    </message>
    <message>
        <source>Font: </source>
        <translation>Schriftart: </translation>
    </message>
    <message>
        <source>Size: </source>
        <translation>Größe: </translation>
    </message>
    <message>
        <source>Extension of Comment File: </source>
        <translation>Endung der Kommentardatei: </translation>
    </message>
    <message>
        <source>Add &gt;&gt;</source>
        <translation>Hinzufügen &gt;&gt;</translation>
    </message>
    <message>
        <source>&lt;&lt; Remove</source>
        <translation>&lt;&lt; Entfernen</translation>
    </message>
    <message>
        <source>Encoding: </source>
        <translation>Zeichenkodierung: </translation>
    </message>
    <message>
        <source>UTF-8 (BeOS)</source>
        <translation>UTF-8 (BeOS)</translation>
    </message>
    <message>
        <source>Shift-JIS</source>
        <translation>Shift-JIS</translation>
    </message>
    <message>
        <source>JIS</source>
        <translation>JIS</translation>
    </message>
    <message>
        <source>Auto Detect</source>
        <translation>Automatisch erkennen</translation>
    </message>
    <message>
        <source>Select...</source>
        <translation>Auswählen...</translation>
    </message>
    <message>
        <source>Colors</source>
        <translation>Farben</translation>
    </message>
    <message>
        <source>Target: </source>
        <translation>Ziel: </translation>
    </message>
    <message>
        <source>Backgrounds</source>
        <translation>Hintergrund</translation>
    </message>
    <message>
        <source>Comment Backgrounds</source>
        <translation>Kommentarhintergrund</translation>
    </message>
    <message>
        <source>Opacity</source>
        <translation>Deckkraft</translation>
    </message>
    <message>
        <source>Etc.</source>
        <translation>Sonstiges</translation>
    </message>
    <message>
        <source>Display Option: </source>
        <translation>Anzeigeoption: </translation>
    </message>
    <message>
        <source>Enable Pre-load</source>
        <translation>Bilder im Voraus laden</translation>
    </message>
    <message>
        <source>%FileName% Information</source>
        <translation>Informationen zu %FileName%</translation>
    </message>
    <message>
        <source>File Name: </source>
        <translation>Dateiname: </translation>
    </message>
    <message>
        <source>Folder: </source>
        <translation>Ordner: </translation>
    </message>
    <message>
        <source>Format: </source>
        <translation>Format: </translation>
    </message>
    <message>
        <source>Memory Usage: </source>
        <translation>Speicherbedarf: </translation>
    </message>
    <message>
        <source>ZELKAN Common Preferences</source>
        <translation>Gemeinsame ZELKAN-Einstellungen</translation>
    </message>
    <message>
        <source>Accelerator Format: </source>
        <translation>Darstellung der Tastenkürzel: </translation>
    </message>
    <message>
        <source>(None)</source>
        <translation>(Keine)</translation>
    </message>
    <message>
        <source>Flat Tool Bar</source>
        <translation>Flache Werkzeugleiste</translation>
    </message>
    <message>
        <source>About %AppName%</source>
        <translation>Über %AppName%</translation>
    </message>
    <message>
        <source>Copyright (C) %AppAuthor%</source>
        <translation>Copyright © %AppAuthor%</translation>
    </message>
    <message>
        <source>ReadMe_Eng.txt</source>
        <translation>ReadMe_Deu.txt</translation>
    </message>
    <message>
        <source>@Err_Cannot_Show_Help@</source>
        <translation>Das Hilfedokument kann nicht geöffnet werden.</translation>
    </message>
    <message>
        <source>@Err_Cannot_Show_Prefs_Win@</source>
        <translation>Das Einstellungsfenster kann nicht geöffnet werden.</translation>
    </message>
    <message>
        <source>@Err_Cannot_Show_Image_Info_Win@</source>
        <translation>Das Fenster mit den Bildinformationen kann nicht geöffnet werden.</translation>
    </message>
    <message>
        <source>@Err_No_Image_Is_Displayed@</source>
        <translation>Es wird kein Bild angezeigt.</translation>
    </message>
    <message>
        <source>@Hint_Excutable_Maybe_Broken@</source>
        <translation>Die Programmdatei ist möglicherweise beschädigt. Bitte installieren Sie das Programm neu.</translation>
    </message>
    <message>
        <source>@Err_Image_Is_Damaged %FileName%@</source>
        <translation>„%FileName%“ kann nicht angezeigt werden: Die Datei ist beschädigt.</translation>
    </message>
    <message>
        <source>@Err_Image_Is_Incomplete %FileName%@</source>
        <translation>„%FileName%“ kann nicht angezeigt werden: Die Datei ist unvollständig.</translation>
    </message>
    <message>
        <source>@Err_Image_Is_Too_Large %FileName%@</source>
        <translation>„%FileName%“ kann nicht angezeigt werden: Das Bild ist zu groß für den Speicher.</translation>
    </message>
    <message>
        <source>@Err_No_Known_Image %FileName%@</source>
        <translation>„%FileName%“ ist kein Bild in einem bekannten Format.</translation>
    </message>
    <message>
        <source>@Err_File_Cannot_Be_Read %FileName%@</source>
        <translation>„%FileName%“ kann nicht gelesen werden.</translation>
    </message>
    <message>
        <source>@Err_File_Is_Gone %FileName%@</source>
        <translation>„%FileName%“ ist nicht mehr vorhanden.</translation>
    </message>
    <message>
        <source>@Err_No_Further_Image %FileName%@</source>
        <translation>Neben „%FileName%“ gibt es kein weiteres Bild.</translation>
    </message>
    <message>
        <source>@Err_No_Image_In_Folder %FileName%@</source>
        <translation>Im Ordner „%FileName%“ sind keine Bilder.</translation>
    </message>
    <message>
        <source>@Err_Folder_Cannot_Be_Read %FileName%@</source>
        <translation>Der Ordner „%FileName%“ kann nicht gelesen werden.</translation>
    </message>
    <message>
        <source>@Ask_Del_One_MRUF %FileName%@</source>
        <translation>„%FileName%“ aus der Liste der zuletzt verwendeten Dateien entfernen?
Die Datei selbst wird nicht gelöscht.</translation>
    </message>
    <message>
        <source>@Hint_Del_One_MRUF@</source>
        <translation>Um einen einzelnen Eintrag zu entfernen, halten Sie beim Auswählen die Alt-Taste gedrückt.</translation>
    </message>
    <message>
        <source>@Ask_Del_All_MRUFs@</source>
        <translation>Alle Einträge aus der Liste der zuletzt verwendeten Dateien entfernen?
Die Dateien selbst werden nicht gelöscht.</translation>
    </message>
    <message>
        <source>Position in Folder</source>
        <translation>Position im Ordner</translation>
    </message>
    <message>
        <source>Format</source>
        <translation>Format</translation>
    </message>
    <message>
        <source>Size</source>
        <translation>Größe</translation>
    </message>
    <message>
        <source>Scale</source>
        <translation>Maßstab</translation>
    </message>
</context>
</TS>
