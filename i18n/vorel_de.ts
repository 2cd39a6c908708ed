<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de_DE">
<context>
    <name>BatchProcessor</name>
    <message>
        <source>… and %1 more files</source>
        <translation>… und %1 weitere Dateien</translation>
    </message>
    <message>
        <source>%1 file(s) already exist:
%2%3

Overwrite?</source>
        <translation>%1 Datei(en) existieren bereits:
%2%3

Überschreiben?</translation>
    </message>
    <message>
        <source>Batch Processing</source>
        <translation>Stapelverarbeitung</translation>
    </message>
    <message>
        <source>Existing files will be overwritten.</source>
        <translation>Vorhandene Dateien werden überschrieben.</translation>
    </message>
    <message>
        <source>Overwrite</source>
        <translation>Überschreiben</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>No target image files found in the input folder.</source>
        <translation>Im Eingabeordner wurden keine passenden Bilddateien gefunden.</translation>
    </message>
    <message>
        <source>Processing aborted.</source>
        <translation>Verarbeitung abgebrochen.</translation>
    </message>
    <message>
        <source>All files processed successfully.</source>
        <translation>Alle Dateien wurden erfolgreich verarbeitet.</translation>
    </message>
    <message>
        <source>No right image to pair with %1</source>
        <translation>Kein rechtes Bild als Partner für %1</translation>
    </message>
    <message>
        <source>Cannot open %1</source>
        <translation>%1 kann nicht geöffnet werden</translation>
    </message>
    <message>
        <source>Could not save %1</source>
        <translation>%1 konnte nicht gespeichert werden</translation>
    </message>
    <message>
        <source>Automatic alignment found nothing to match; the pair was not aligned.</source>
        <translation>Die automatische Ausrichtung fand keine übereinstimmenden Punkte; das Paar wurde nicht ausgerichtet.</translation>
    </message>
    <message>
        <source>The crop rectangle lies outside the picture.</source>
        <translation>Das Zuschneiderechteck liegt außerhalb des Bildes.</translation>
    </message>
    <message>
        <source>Could not resize the pair.</source>
        <translation>Die Größe des Paars konnte nicht geändert werden.</translation>
    </message>
    <message>
        <source>Not enough memory for %1</source>
        <translation>Nicht genügend Speicher für %1</translation>
    </message>
    <message>
        <source>No right image %1 for %2</source>
        <translation>Kein rechtes Bild %1 zu %2</translation>
    </message>
    <message>
        <source>No left image %1 for %2</source>
        <translation>Kein linkes Bild %1 zu %2</translation>
    </message>
    <message>
        <source>No file of the same name in the r folder</source>
        <translation>Keine gleichnamige Datei im Ordner r</translation>
    </message>
    <message>
        <source>No file of the same name in the l folder</source>
        <translation>Keine gleichnamige Datei im Ordner l</translation>
    </message>
    <message>
        <source>The name of %1 does not end in _L, _R, -left or -right</source>
        <translation>Der Name von %1 endet nicht auf _L, _R, -left oder -right</translation>
    </message>
    <message>
        <source>%1 is paired instead</source>
        <translation>Stattdessen mit %1 gepaart</translation>
    </message>
</context>
<context>
    <name>BatchSettings</name>
    <message>
        <source>Please specify an input folder.</source>
        <translation>Bitte einen Eingabeordner angeben.</translation>
    </message>
    <message>
        <source>Please specify an output folder.</source>
        <translation>Bitte einen Ausgabeordner angeben.</translation>
    </message>
    <message>
        <source>Crop size (W, H) must be greater than 0.</source>
        <translation>Die Zuschnittgröße (B, H) muss größer als 0 sein.</translation>
    </message>
    <message>
        <source>Resize dimensions (W, H) must be greater than 0.</source>
        <translation>Die neuen Abmessungen (B, H) müssen größer als 0 sein.</translation>
    </message>
</context>
<context>
    <name>DisplayMode</name>
    <message>
        <source>Side by Side</source>
        <translation>Seite an Seite</translation>
    </message>
    <message>
        <source>Gray Anaglyph</source>
        <translation>Graustufen-Anaglyphe</translation>
    </message>
    <message>
        <source>Color Anaglyph</source>
        <translation>Farb-Anaglyphe</translation>
    </message>
    <message>
        <source>Dubois Anaglyph</source>
        <translation>Dubois-Anaglyphe</translation>
    </message>
    <message>
        <source>Half SBS</source>
        <translation>Halbes SBS</translation>
    </message>
    <message>
        <source>Image with Border</source>
        <translation>Bild mit Rahmen</translation>
    </message>
    <message>
        <source>Over/Under</source>
        <translation>Über/Unter</translation>
    </message>
    <message>
        <source>Half Over/Under</source>
        <translation>Halbes Über/Unter</translation>
    </message>
    <message>
        <source>Row Interlaced</source>
        <translation>Zeilenweise verschachtelt</translation>
    </message>
    <message>
        <source>Column Interlaced</source>
        <translation>Spaltenweise verschachtelt</translation>
    </message>
    <message>
        <source>Checkerboard</source>
        <translation>Schachbrett</translation>
    </message>
    <message>
        <source>Dubois Amber-Blue Anaglyph</source>
        <translation>Dubois-Anaglyphe Bernstein-Blau</translation>
    </message>
    <message>
        <source>Dubois Green-Magenta Anaglyph</source>
        <translation>Dubois-Anaglyphe Grün-Magenta</translation>
    </message>
    <message>
        <source>Half Color Anaglyph</source>
        <translation>Halbfarben-Anaglyphe</translation>
    </message>
    <message>
        <source>Optimized Anaglyph</source>
        <translation>Optimierte Anaglyphe</translation>
    </message>
</context>
<context>
    <name>ExifOrientationPanel</name>
    <message>
        <source>Exif Orientation Rewrite</source>
        <translation>Exif-Ausrichtung neu schreiben</translation>
    </message>
    <message>
        <source>Rewrite Exif</source>
        <translation>Exif neu schreiben</translation>
    </message>
    <message>
        <source>Images (*.jpg *.jpeg *.png *.tif *.tiff *.heic *.heif)</source>
        <translation>Bilder (*.jpg *.jpeg *.png *.tif *.tiff *.heic *.heif)</translation>
    </message>
    <message>
        <source>JPEG (*.jpg *.jpeg)</source>
        <translation>JPEG (*.jpg *.jpeg)</translation>
    </message>
    <message>
        <source>PNG (*.png)</source>
        <translation>PNG (*.png)</translation>
    </message>
    <message>
        <source>TIFF (*.tif *.tiff)</source>
        <translation>TIFF (*.tif *.tiff)</translation>
    </message>
    <message>
        <source>HEIC (*.heic *.heif)</source>
        <translation>HEIC (*.heic *.heif)</translation>
    </message>
    <message>
        <source>Success (Orientation → %1)</source>
        <translation>Erfolgreich (Ausrichtung → %1)</translation>
    </message>
    <message>
        <source>Processing %1 of %2 files</source>
        <translation>Verarbeite %1 von %2 Dateien</translation>
    </message>
    <message>
        <source>✅ All %1 files written successfully</source>
        <translation>✅ Alle %1 Dateien erfolgreich geschrieben</translation>
    </message>
    <message>
        <source>⚠️ %1 succeeded / %2 failed</source>
        <translation>⚠️ %1 erfolgreich / %2 fehlgeschlagen</translation>
    </message>
    <message>
        <source>1 - No rotation (normal)</source>
        <translation>1 - Keine Drehung (normal)</translation>
    </message>
    <message>
        <source>2 - Mirror horizontal</source>
        <translation>2 - Horizontal spiegeln</translation>
    </message>
    <message>
        <source>3 - Rotate 180°</source>
        <translation>3 - Um 180° drehen</translation>
    </message>
    <message>
        <source>4 - Mirror vertical</source>
        <translation>4 - Vertikal spiegeln</translation>
    </message>
    <message>
        <source>5 - Mirror horizontal + Rotate 270°</source>
        <translation>5 - Horizontal spiegeln + um 270° drehen</translation>
    </message>
    <message>
        <source>6 - Rotate 90° clockwise</source>
        <translation>6 - Um 90° im Uhrzeigersinn drehen</translation>
    </message>
    <message>
        <source>7 - Mirror horizontal + Rotate 90°</source>
        <translation>7 - Horizontal spiegeln + um 90° drehen</translation>
    </message>
    <message>
        <source>8 - Rotate 270° clockwise</source>
        <translation>8 - Um 270° im Uhrzeigersinn drehen</translation>
    </message>
</context>
<context>
    <name>ExifOrientationWriter</name>
    <message>
        <source>Unsupported format: %1</source>
        <translation>Nicht unterstütztes Format: %1</translation>
    </message>
    <message>
        <source>Could not read the file</source>
        <translation>Die Datei konnte nicht gelesen werden</translation>
    </message>
    <message>
        <source>Could not determine file type</source>
        <translation>Der Dateityp konnte nicht bestimmt werden</translation>
    </message>
    <message>
        <source>Could not create write destination</source>
        <translation>Das Schreibziel konnte nicht angelegt werden</translation>
    </message>
    <message>
        <source>Failed to finalize the file</source>
        <translation>Die Datei konnte nicht abgeschlossen werden</translation>
    </message>
</context>
<context>
    <name>MainWindow</name>
    <message>
        <source>Cannot open %1</source>
        <translation>%1 kann nicht geöffnet werden</translation>
    </message>
    <message>
        <source>%1 cannot be an over/under picture: its height of %2 rows is odd.</source>
        <translation>%1 kann kein Über/Unter-Bild sein: Seine Höhe von %2 Zeilen ist ungerade.</translation>
    </message>
    <message>
        <source>%1 cannot be a side-by-side pair: its width of %2 columns is odd.</source>
        <translation>%1 kann kein Seite-an-Seite-Paar sein: Seine Breite von %2 Spalten ist ungerade.</translation>
    </message>
</context>
<context>
    <name>MpoError</name>
    <message>
        <source>Invalid MPO file</source>
        <translation>Ungültige MPO-Datei</translation>
    </message>
    <message>
        <source>Failed to extract MPO images</source>
        <translation>Die MPO-Bilder konnten nicht extrahiert werden</translation>
    </message>
</context>
<context>
    <name>PhotoTileDelegate</name>
    <message>
        <source>Cannot be read</source>
        <translation>Nicht lesbar</translation>
    </message>
</context>
<context>
    <name>SpatialPhotoError</name>
    <message>
        <source>Does not contain two or more images (count=%1)</source>
        <translation>Enthält nicht mindestens zwei Bilder (Anzahl=%1)</translation>
    </message>
    <message>
        <source>No stereo pair group found</source>
        <translation>Keine Stereopaar-Gruppe gefunden</translation>
    </message>
    <message>
        <source>The container property cannot be retrieved.</source>
        <translation>Die Container-Eigenschaft kann nicht gelesen werden.</translation>
    </message>
    <message>
        <source>Could not open the file: </source>
        <translation>Die Datei konnte nicht geöffnet werden: </translation>
    </message>
    <message>
        <source>This is not a spartial photo: </source>
        <translation>Dies ist kein räumliches Foto: </translation>
    </message>
    <message>
        <source>Could not create the output destination: </source>
        <translation>Das Ausgabeziel konnte nicht angelegt werden: </translation>
    </message>
    <message>
        <source>Failed to write spatial photo: </source>
        <translation>Das räumliche Foto konnte nicht geschrieben werden: </translation>
    </message>
    <message>
        <source>Failed to retrieve left and right images.</source>
        <translation>Linkes und rechtes Bild konnten nicht gelesen werden.</translation>
    </message>
    <message>
        <source>Could not convert NSImage to CGImage</source>
        <translation>Das Bild konnte nicht umgewandelt werden</translation>
    </message>
</context>
<context>
    <name>StereoFileError</name>
    <message>
        <source>The stereo pair cannot be encoded for &quot;%1&quot;</source>
        <translation>Das Stereopaar kann für „%1“ nicht kodiert werden</translation>
    </message>
    <message>
        <source>The file &quot;%1&quot; cannot be written</source>
        <translation>Die Datei „%1“ kann nicht geschrieben werden</translation>
    </message>
</context>
<context>
    <name>Vorel::BatchProgressViewController</name>
    <message>
        <source>Batch Processing</source>
        <translation>Stapelverarbeitung</translation>
    </message>
    <message>
        <source>Abort batch processing?</source>
        <translation>Stapelverarbeitung abbrechen?</translation>
    </message>
    <message>
        <source>Files already processed will be kept in the output folder.</source>
        <translation>Bereits verarbeitete Dateien bleiben im Ausgabeordner erhalten.</translation>
    </message>
    <message>
        <source>Abort</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Continue</source>
        <translation>Fortfahren</translation>
    </message>
    <message>
        <source>Input: %1  (%2 files)</source>
        <translation>Eingabe: %1  (%2 Dateien)</translation>
    </message>
    <message>
        <source>%1 / %2 files</source>
        <translation>%1 / %2 Dateien</translation>
    </message>
    <message>
        <source>Starting…</source>
        <translation>Wird gestartet…</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1: %2</translation>
    </message>
    <message>
        <source>Skipped: %1</source>
        <translation>Übersprungen: %1</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>Elapsed: %1</source>
        <translation>Vergangen: %1</translation>
    </message>
</context>
<context>
    <name>Vorel::BatchSettingsViewController</name>
    <message>
        <source>SBS Image</source>
        <translation>SBS-Bild</translation>
    </message>
    <message>
        <source>Spatial Photo</source>
        <translation>Räumliches Foto</translation>
    </message>
    <message>
        <source>Separate L/R Images</source>
        <translation>Getrennte L/R-Bilder</translation>
    </message>
    <message>
        <source>MPO Image</source>
        <translation>MPO-Bild</translation>
    </message>
    <message>
        <source>JPS/PNS Image</source>
        <translation>JPS/PNS-Bild</translation>
    </message>
    <message>
        <source>Over/Under Image</source>
        <translation>Über/Unter-Bild</translation>
    </message>
    <message>
        <source>Gray Anaglyph</source>
        <translation>Graustufen-Anaglyphe</translation>
    </message>
    <message>
        <source>Color Anaglyph</source>
        <translation>Farb-Anaglyphe</translation>
    </message>
    <message>
        <source>Dubois Anaglyph</source>
        <translation>Dubois-Anaglyphe</translation>
    </message>
    <message>
        <source>Half SBS</source>
        <translation>Halbes SBS</translation>
    </message>
    <message>
        <source>Image with Border</source>
        <translation>Bild mit Rahmen</translation>
    </message>
    <message>
        <source>MPO (3-D camera)</source>
        <translation>MPO (3D-Kamera)</translation>
    </message>
    <message>
        <source>JPS (stereo JPEG)</source>
        <translation>JPS (Stereo-JPEG)</translation>
    </message>
    <message>
        <source>Over/Under</source>
        <translation>Über/Unter</translation>
    </message>
    <message>
        <source>Half Over/Under</source>
        <translation>Halbes Über/Unter</translation>
    </message>
    <message>
        <source>Row Interlaced</source>
        <translation>Zeilenweise verschachtelt</translation>
    </message>
    <message>
        <source>Column Interlaced</source>
        <translation>Spaltenweise verschachtelt</translation>
    </message>
    <message>
        <source>Checkerboard</source>
        <translation>Schachbrett</translation>
    </message>
    <message>
        <source>Dubois Amber-Blue Anaglyph</source>
        <translation>Dubois-Anaglyphe Bernstein-Blau</translation>
    </message>
    <message>
        <source>Dubois Green-Magenta Anaglyph</source>
        <translation>Dubois-Anaglyphe Grün-Magenta</translation>
    </message>
    <message>
        <source>Half Color Anaglyph</source>
        <translation>Halbfarben-Anaglyphe</translation>
    </message>
    <message>
        <source>Optimized Anaglyph</source>
        <translation>Optimierte Anaglyphe</translation>
    </message>
    <message>
        <source>(Not selected)</source>
        <translation>(Nicht ausgewählt)</translation>
    </message>
    <message>
        <source>Resize to specified size without maintaining aspect ratio</source>
        <translation>Auf die angegebene Größe skalieren, ohne das Seitenverhältnis beizubehalten</translation>
    </message>
    <message>
        <source>Maintain aspect ratio - Crop the inside</source>
        <translation>Seitenverhältnis beibehalten - Innenbereich ausschneiden</translation>
    </message>
    <message>
        <source>Maintain aspect ratio - Fill in the missing parts with black</source>
        <translation>Seitenverhältnis beibehalten - Fehlende Bereiche schwarz füllen</translation>
    </message>
    <message>
        <source>Batch operation</source>
        <translation>Stapelverarbeitung</translation>
    </message>
    <message>
        <source>Start Batch Processing</source>
        <translation>Stapelverarbeitung starten</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Browse…</source>
        <translation>Durchsuchen…</translation>
    </message>
    <message>
        <source>Input</source>
        <translation>Eingabe</translation>
    </message>
    <message>
        <source>Folder:</source>
        <translation>Ordner:</translation>
    </message>
    <message>
        <source>Choose the input folder</source>
        <translation>Eingabeordner wählen</translation>
    </message>
    <message>
        <source>Format:</source>
        <translation>Format:</translation>
    </message>
    <message>
        <source>Pair by name (_L/_R, -left/-right, l/ and r/ folders)</source>
        <translation>Nach Namen paaren (_L/_R, -left/-right, Ordner l/ und r/)</translation>
    </message>
    <message>
        <source>Output</source>
        <translation>Ausgabe</translation>
    </message>
    <message>
        <source>Choose the output folder</source>
        <translation>Ausgabeordner wählen</translation>
    </message>
    <message>
        <source>File format:</source>
        <translation>Dateiformat:</translation>
    </message>
    <message>
        <source>Processing</source>
        <translation>Verarbeitung</translation>
    </message>
    <message>
        <source>Swap L/R</source>
        <translation>L/R tauschen</translation>
    </message>
    <message>
        <source>Auto alignment</source>
        <translation>Automatische Ausrichtung</translation>
    </message>
    <message>
        <source>Auto color matching</source>
        <translation>Automatischer Farbabgleich</translation>
    </message>
    <message>
        <source>Right Reference</source>
        <translation>Rechts als Referenz</translation>
    </message>
    <message>
        <source>Left Reference</source>
        <translation>Links als Referenz</translation>
    </message>
    <message>
        <source>Manual adjustment</source>
        <translation>Manuelle Anpassung</translation>
    </message>
    <message>
        <source>H (%)</source>
        <translation>H (%)</translation>
    </message>
    <message>
        <source>V (%)</source>
        <translation>V (%)</translation>
    </message>
    <message>
        <source>Rotation (°)</source>
        <translation>Drehung (°)</translation>
    </message>
    <message>
        <source>Scale (%)</source>
        <translation>Skalierung (%)</translation>
    </message>
    <message>
        <source>Crop</source>
        <translation>Zuschnitt</translation>
    </message>
    <message>
        <source>Crop (pixels)</source>
        <translation>Zuschneiden (Pixel)</translation>
    </message>
    <message>
        <source>X</source>
        <translation>X</translation>
    </message>
    <message>
        <source>Y</source>
        <translation>Y</translation>
    </message>
    <message>
        <source>W</source>
        <translation>B</translation>
    </message>
    <message>
        <source>H</source>
        <translation>H</translation>
    </message>
    <message>
        <source>Resize</source>
        <translation>Größenänderung</translation>
    </message>
    <message>
        <source>Resize (pixels)</source>
        <translation>Größe ändern (Pixel)</translation>
    </message>
    <message>
        <source>Fixed aspect ratio</source>
        <translation>Festes Seitenverhältnis</translation>
    </message>
    <message>
        <source>Horizontal FOV</source>
        <translation>Horizontales Sichtfeld</translation>
    </message>
    <message>
        <source>degree</source>
        <translation>Grad</translation>
    </message>
    <message>
        <source>Disparity Adjustment</source>
        <translation>Disparitätsanpassung</translation>
    </message>
    <message>
        <source>StereoBase</source>
        <translation>Stereobasis</translation>
    </message>
    <message>
        <source>m</source>
        <translation>m</translation>
    </message>
    <message>
        <source>Reset to Default</source>
        <translation>Auf Standard zurücksetzen</translation>
    </message>
</context>
<context>
    <name>Vorel::ColorEyedropperSheet</name>
    <message>
        <source>Click on the image to get the color.</source>
        <translation>Klicken Sie auf das Bild, um die Farbe zu übernehmen.</translation>
    </message>
</context>
<context>
    <name>Vorel::ControlPanelWidget</name>
    <message>
        <source>X</source>
        <translation>X</translation>
    </message>
    <message>
        <source>Y</source>
        <translation>Y</translation>
    </message>
    <message>
        <source>Rot.</source>
        <translation>Dreh.</translation>
    </message>
    <message>
        <source>Size</source>
        <translation>Größe</translation>
    </message>
    <message>
        <source>Open image files...</source>
        <translation>Bilddateien öffnen...</translation>
    </message>
    <message>
        <source>Open from Photos Library...</source>
        <translation>Aus der Fotomediathek öffnen...</translation>
    </message>
    <message>
        <source>Save Display Image...</source>
        <translation>Angezeigtes Bild speichern...</translation>
    </message>
    <message>
        <source>Save as Spatial Photo...</source>
        <translation>Als räumliches Foto speichern...</translation>
    </message>
    <message>
        <source>Batch operation...</source>
        <translation>Stapelverarbeitung...</translation>
    </message>
    <message>
        <source>Orientation Tag Edit...</source>
        <translation>Ausrichtungs-Tag bearbeiten...</translation>
    </message>
    <message>
        <source>Prev.</source>
        <translation>Zurück</translation>
    </message>
    <message>
        <source>Next</source>
        <translation>Weiter</translation>
    </message>
    <message>
        <source>File</source>
        <translation>Datei</translation>
    </message>
    <message>
        <source>Edit</source>
        <translation>Bearbeiten</translation>
    </message>
    <message>
        <source>View</source>
        <translation>Ansicht</translation>
    </message>
    <message>
        <source>Adjust</source>
        <translation>Anpassen</translation>
    </message>
    <message>
        <source>Recent Files</source>
        <translation>Zuletzt verwendete Dateien</translation>
    </message>
    <message>
        <source>(No history)</source>
        <translation>(Kein Verlauf)</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>Rückgängig</translation>
    </message>
    <message>
        <source>Redo</source>
        <translation>Wiederherstellen</translation>
    </message>
    <message>
        <source>Auto Color Matching</source>
        <translation>Automatischer Farbabgleich</translation>
    </message>
    <message>
        <source>Left ref</source>
        <translation>Links als Ref.</translation>
    </message>
    <message>
        <source>Right ref</source>
        <translation>Rechts als Ref.</translation>
    </message>
    <message>
        <source>Auto align</source>
        <translation>Automatisch ausrichten</translation>
    </message>
    <message>
        <source>Crop</source>
        <translation>Zuschneiden</translation>
    </message>
    <message>
        <source>Resize</source>
        <translation>Größe ändern</translation>
    </message>
    <message>
        <source>Swap L/R</source>
        <translation>L/R tauschen</translation>
    </message>
    <message>
        <source>More:</source>
        <translation>Weitere:</translation>
    </message>
    <message>
        <source>Image with border settings</source>
        <translation>Einstellungen für Bild mit Rahmen</translation>
    </message>
    <message>
        <source>Full screen</source>
        <translation>Vollbild</translation>
    </message>
    <message>
        <source>External monitor</source>
        <translation>Externer Monitor</translation>
    </message>
    <message>
        <source>Fit to screen</source>
        <translation>An Bildschirm anpassen</translation>
    </message>
    <message>
        <source>Actual image size</source>
        <translation>Originalgröße</translation>
    </message>
    <message>
        <source>Reset</source>
        <translation>Zurücksetzen</translation>
    </message>
</context>
<context>
    <name>Vorel::CropOverlayView</name>
    <message>
        <source>Free</source>
        <translation>Frei</translation>
    </message>
    <message>
        <source>Aspect ratio</source>
        <translation>Seitenverhältnis</translation>
    </message>
</context>
<context>
    <name>Vorel::FolderDropWidget</name>
    <message>
        <source>Drop a folder here</source>
        <translation>Ordner hierher ziehen</translation>
    </message>
</context>
<context>
    <name>Vorel::ImageBorderSettingsDialog</name>
    <message>
        <source>SBS</source>
        <translation>SBS</translation>
    </message>
    <message>
        <source>LRL</source>
        <translation>LRL</translation>
    </message>
    <message>
        <source>LR/RL</source>
        <translation>LR/RL</translation>
    </message>
    <message>
        <source>Add Border</source>
        <translation>Rahmen hinzufügen</translation>
    </message>
    <message>
        <source>Use fusion dots</source>
        <translation>Fusionspunkte verwenden</translation>
    </message>
    <message>
        <source>Image with border settings</source>
        <translation>Einstellungen für Bild mit Rahmen</translation>
    </message>
    <message>
        <source>Image layout</source>
        <translation>Bildanordnung</translation>
    </message>
    <message>
        <source>Widht (%):</source>
        <translation>Breite (%):</translation>
    </message>
    <message>
        <source>Color:</source>
        <translation>Farbe:</translation>
    </message>
    <message>
        <source>Round Corners (%):</source>
        <translation>Abgerundete Ecken (%):</translation>
    </message>
    <message>
        <source>Size (%):</source>
        <translation>Größe (%):</translation>
    </message>
    <message>
        <source>Pick</source>
        <translation>Aufnehmen</translation>
    </message>
    <message>
        <source>Extract colors from an image</source>
        <translation>Farben aus einem Bild übernehmen</translation>
    </message>
    <message>
        <source>Palette</source>
        <translation>Palette</translation>
    </message>
    <message>
        <source>Open the color palette</source>
        <translation>Farbpalette öffnen</translation>
    </message>
    <message>
        <source>Colors</source>
        <translation>Farben</translation>
    </message>
</context>
<context>
    <name>Vorel::MainWindow</name>
    <message>
        <source>Vorel</source>
        <translation>Vorel</translation>
    </message>
    <message>
        <source>Image not loaded</source>
        <translation>Kein Bild geladen</translation>
    </message>
    <message>
        <source>%1
%2 × %3 pixels per view
</source>
        <translation>%1
%2 × %3 Pixel pro Ansicht
</translation>
    </message>
    <message>
        <source>Images (*.jpg *.jpeg *.png *.tiff *.tif *.heic *.mpo *.jps *.pns *.bmp *.JPG *.JPEG *.PNG *.TIFF *.TIF *.HEIC *.MPO *.JPS *.PNS *.BMP)</source>
        <translation>Bilder (*.jpg *.jpeg *.png *.tiff *.tif *.heic *.mpo *.jps *.pns *.bmp *.JPG *.JPEG *.PNG *.TIFF *.TIF *.HEIC *.MPO *.JPS *.PNS *.BMP)</translation>
    </message>
    <message>
        <source>Cannot open %1</source>
        <translation>%1 kann nicht geöffnet werden</translation>
    </message>
    <message>
        <source>Open image files...</source>
        <translation>Bilddateien öffnen...</translation>
    </message>
    <message>
        <source>Choose one side-by-side file, or two files (left and right).</source>
        <translation>Wählen Sie eine Seite-an-Seite-Datei oder zwei Dateien (links und rechts).</translation>
    </message>
    <message>
        <source>Open as over/under...</source>
        <translation>Als Über/Unter öffnen...</translation>
    </message>
    <message>
        <source>Save Display Image...</source>
        <translation>Angezeigtes Bild speichern...</translation>
    </message>
    <message>
        <source>Images (*.jpg *.png *.tif *.heic *.bmp);;MPO (*.mpo);;JPS (*.jps)</source>
        <translation>Bilder (*.jpg *.png *.tif *.heic *.bmp);;MPO (*.mpo);;JPS (*.jps)</translation>
    </message>
    <message>
        <source>Could not save %1</source>
        <translation>%1 konnte nicht gespeichert werden</translation>
    </message>
    <message>
        <source>Swap</source>
        <translation>Tauschen</translation>
    </message>
    <message>
        <source>Image with border settings</source>
        <translation>Einstellungen für Bild mit Rahmen</translation>
    </message>
    <message>
        <source>Fit to screen</source>
        <translation>An Bildschirm anpassen</translation>
    </message>
    <message>
        <source>Actual image size</source>
        <translation>Originalgröße</translation>
    </message>
    <message>
        <source>Control Panel Display/Hide</source>
        <translation>Bedienfeld ein-/ausblenden</translation>
    </message>
    <message>
        <source>Full screen</source>
        <translation>Vollbild</translation>
    </message>
    <message>
        <source>External monitor</source>
        <translation>Externer Monitor</translation>
    </message>
    <message>
        <source>File</source>
        <translation>Datei</translation>
    </message>
    <message>
        <source>Open from Photos Library...</source>
        <translation>Aus der Fotomediathek öffnen...</translation>
    </message>
    <message>
        <source>Save as Spatial Photo...</source>
        <translation>Als räumliches Foto speichern...</translation>
    </message>
    <message>
        <source>Next image files</source>
        <translation>Nächste Bilddateien</translation>
    </message>
    <message>
        <source>Prev. image files</source>
        <translation>Vorherige Bilddateien</translation>
    </message>
    <message>
        <source>Batch operation...</source>
        <translation>Stapelverarbeitung...</translation>
    </message>
    <message>
        <source>Orientation Tag Edit...</source>
        <translation>Ausrichtungs-Tag bearbeiten...</translation>
    </message>
    <message>
        <source>Edit</source>
        <translation>Bearbeiten</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>Rückgängig</translation>
    </message>
    <message>
        <source>Redo</source>
        <translation>Wiederherstellen</translation>
    </message>
    <message>
        <source>Auto align</source>
        <translation>Automatisch ausrichten</translation>
    </message>
    <message>
        <source>Auto Color Matching(Left ref.)</source>
        <translation>Automatischer Farbabgleich (Links als Ref.)</translation>
    </message>
    <message>
        <source>Auto Color Matching(Right ref.)</source>
        <translation>Automatischer Farbabgleich (Rechts als Ref.)</translation>
    </message>
    <message>
        <source>Crop</source>
        <translation>Zuschneiden</translation>
    </message>
    <message>
        <source>Resize</source>
        <translation>Größe ändern</translation>
    </message>
    <message>
        <source>Preferences...</source>
        <translation>Einstellungen...</translation>
    </message>
    <message>
        <source>View</source>
        <translation>Ansicht</translation>
    </message>
    <message>
        <source>Prev.</source>
        <translation>Zurück</translation>
    </message>
    <message>
        <source>Next</source>
        <translation>Weiter</translation>
    </message>
    <message>
        <source>Left ref</source>
        <translation>Links als Ref.</translation>
    </message>
    <message>
        <source>Right ref</source>
        <translation>Rechts als Ref.</translation>
    </message>
    <message>
        <source>Aligning the pair...</source>
        <translation>Paar wird ausgerichtet...</translation>
    </message>
    <message>
        <source>Auto align found nothing to match between the two images; the pair is unchanged.</source>
        <translation>Die automatische Ausrichtung fand keine Übereinstimmungen zwischen den beiden Bildern; das Paar bleibt unverändert.</translation>
    </message>
    <message>
        <source>Apply Crop</source>
        <translation>Zuschnitt anwenden</translation>
    </message>
    <message>
        <source>%1 of %2 in the album %3</source>
        <translation>%1 von %2 im Album %3</translation>
    </message>
    <message>
        <source>%1 of %2 in the folder</source>
        <translation>%1 von %2 im Ordner</translation>
    </message>
    <message>
        <source>not among the %1 files of the folder</source>
        <translation>nicht unter den %1 Dateien des Ordners</translation>
    </message>
    <message>
        <source>save erroe</source>
        <translation>Fehler beim Speichern</translation>
    </message>
</context>
<context>
    <name>Vorel::OrientationRewriteDialog</name>
    <message>
        <source>Writing...</source>
        <translation>Wird geschrieben...</translation>
    </message>
    <message>
        <source>Exif Orientation Rewrite</source>
        <translation>Exif-Ausrichtung neu schreiben</translation>
    </message>
</context>
<context>
    <name>Vorel::PanelAccessoryView</name>
    <message>
        <source>Orientation:</source>
        <translation>Ausrichtung:</translation>
    </message>
    <message>
        <source>Select files and press &quot;Rewrite Exif&quot; to apply</source>
        <translation>Dateien auswählen und zum Anwenden „Exif neu schreiben“ drücken</translation>
    </message>
</context>
<context>
    <name>Vorel::PhotoAlbumListModel</name>
    <message>
        <source>1 picture</source>
        <translation>1 Bild</translation>
    </message>
    <message>
        <source>%1 pictures</source>
        <translation>%1 Bilder</translation>
    </message>
</context>
<context>
    <name>Vorel::PhotoPickerWindow</name>
    <message>
        <source>Open as left/right pair</source>
        <translation>Als Links/Rechts-Paar öffnen</translation>
    </message>
    <message>
        <source>Photos Library</source>
        <translation>Fotomediathek</translation>
    </message>
    <message>
        <source>Size:</source>
        <translation>Größe:</translation>
    </message>
    <message>
        <source>Looking for albums…</source>
        <translation>Alben werden gesucht…</translation>
    </message>
    <message>
        <source>No pictures found in %1</source>
        <translation>Keine Bilder in %1 gefunden</translation>
    </message>
    <message>
        <source>Reading the album…</source>
        <translation>Album wird gelesen…</translation>
    </message>
</context>
<context>
    <name>Vorel::PreferencesDialog</name>
    <message>
        <source>The album window (original)</source>
        <translation>Dem Albumfenster (eigenes)</translation>
    </message>
    <message>
        <source>The desktop&apos;s file chooser (system)</source>
        <translation>Dem Dateiauswahldialog der Arbeitsumgebung (System)</translation>
    </message>
    <message>
        <source>Preferences</source>
        <translation>Einstellungen</translation>
    </message>
    <message>
        <source>Add Album Folder</source>
        <translation>Albumordner hinzufügen</translation>
    </message>
    <message>
        <source>Open from Photos Library with</source>
        <translation>Aus der Fotomediathek öffnen mit</translation>
    </message>
    <message>
        <source>Album folders besides Pictures</source>
        <translation>Albumordner außer „Bilder“</translation>
    </message>
    <message>
        <source>Add...</source>
        <translation>Hinzufügen...</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>Entfernen</translation>
    </message>
</context>
<context>
    <name>Vorel::ProjectorLink</name>
    <message>
        <source>Projector Output</source>
        <translation>Projektorausgabe</translation>
    </message>
    <message>
        <source>Image not loaded</source>
        <translation>Kein Bild geladen</translation>
    </message>
</context>
<context>
    <name>Vorel::ProjectorSelectionPanel</name>
    <message>
        <source>Projector Output</source>
        <translation>Projektorausgabe</translation>
    </message>
    <message>
        <source>Projection Mode:</source>
        <translation>Projektionsmodus:</translation>
    </message>
    <message>
        <source>SBS (1 projector)</source>
        <translation>SBS (1 Projektor)</translation>
    </message>
    <message>
        <source>L/R Split (2 projectors)</source>
        <translation>L/R getrennt (2 Projektoren)</translation>
    </message>
    <message>
        <source>Single picture</source>
        <translation>Einzelbild</translation>
    </message>
    <message>
        <source>You can also stop it with the Esc key.</source>
        <translation>Sie können sie auch mit der Esc-Taste beenden.</translation>
    </message>
    <message>
        <source>Start Projection</source>
        <translation>Projektion starten</translation>
    </message>
    <message>
        <source>Stop Projection</source>
        <translation>Projektion beenden</translation>
    </message>
    <message>
        <source>No external screens detected.</source>
        <translation>Keine externen Bildschirme erkannt.</translation>
    </message>
    <message>
        <source>Screen %1  (%2 × %3)</source>
        <translation>Bildschirm %1  (%2 × %3)</translation>
    </message>
    <message>
        <source>Please select at least one screen.</source>
        <translation>Bitte mindestens einen Bildschirm auswählen.</translation>
    </message>
</context>
<context>
    <name>Vorel::ResizeDialog</name>
    <message>
        <source>Resize to specified size without maintaining aspect ratio</source>
        <translation>Auf die angegebene Größe skalieren, ohne das Seitenverhältnis beizubehalten</translation>
    </message>
    <message>
        <source>Maintain aspect ratio - Crop the inside</source>
        <translation>Seitenverhältnis beibehalten - Innenbereich ausschneiden</translation>
    </message>
    <message>
        <source>Maintain aspect ratio - Fill in the missing parts with black</source>
        <translation>Seitenverhältnis beibehalten - Fehlende Bereiche schwarz füllen</translation>
    </message>
    <message>
        <source>Resize</source>
        <translation>Größe ändern</translation>
    </message>
    <message>
        <source>Current size: %1 px</source>
        <translation>Aktuelle Größe: %1 px</translation>
    </message>
    <message>
        <source>Width:</source>
        <translation>Breite:</translation>
    </message>
    <message>
        <source>Height:</source>
        <translation>Höhe:</translation>
    </message>
    <message>
        <source>Fixed aspect ratio</source>
        <translation>Festes Seitenverhältnis</translation>
    </message>
    <message>
        <source>→ Extract the image’s center: %1 px → %2 px</source>
        <translation>→ Bildmitte ausschneiden: %1 px → %2 px</translation>
    </message>
    <message>
        <source>→ Resize to %1 px</source>
        <translation>→ Auf %1 px skalieren</translation>
    </message>
    <message>
        <source>→ %1 px（image %2 px）</source>
        <translation>→ %1 px (Bild %2 px)</translation>
    </message>
    <message>
        <source>Please enter positive integers for width and height.</source>
        <translation>Bitte positive ganze Zahlen für Breite und Höhe eingeben.</translation>
    </message>
</context>
<context>
    <name>Vorel::SpatialPhotoSavePanel</name>
    <message>
        <source>Save as Spatial Photo</source>
        <translation>Als räumliches Foto speichern</translation>
    </message>
    <message>
        <source>HEIC (*.heic)</source>
        <translation>HEIC (*.heic)</translation>
    </message>
    <message>
        <source>Spatial Photo Parameters</source>
        <translation>Parameter des räumlichen Fotos</translation>
    </message>
    <message>
        <source>Horizontal FOV</source>
        <translation>Horizontales Sichtfeld</translation>
    </message>
    <message>
        <source>degree</source>
        <translation>Grad</translation>
    </message>
    <message>
        <source>Disparity Adjustment</source>
        <translation>Disparitätsanpassung</translation>
    </message>
    <message>
        <source>StereoBase</source>
        <translation>Stereobasis</translation>
    </message>
    <message>
        <source>m</source>
        <translation>m</translation>
    </message>
    <message>
        <source>Reset to Default</source>
        <translation>Auf Standard zurücksetzen</translation>
    </message>
</context>
<context>
    <name>VorelCli</name>
    <message>
        <source> (exists)</source>
        <translation> (vorhanden)</translation>
    </message>
    <message>
        <source>Pass --yes to overwrite them or --skip-existing to keep them.</source>
        <translation>Mit --yes werden sie überschrieben, mit --skip-existing behalten.</translation>
    </message>
    <message>
        <source>expected INPUT_DIR OUTPUT_DIR</source>
        <translation>erwartet EINGABEORDNER AUSGABEORDNER</translation>
    </message>
    <message>
        <source>cannot open the log %1</source>
        <translation>das Protokoll %1 kann nicht geöffnet werden</translation>
    </message>
    <message>
        <source>No target image files found in the input folder.</source>
        <translation>Im Eingabeordner wurden keine passenden Bilddateien gefunden.</translation>
    </message>
    <message>
        <source>cannot create the output folder %1</source>
        <translation>der Ausgabeordner %1 kann nicht angelegt werden</translation>
    </message>
    <message>
        <source>usage: vorel-cli batch [options] INPUT_DIR OUTPUT_DIR
</source>
        <translation>Aufruf: vorel-cli batch [Optionen] EINGABEORDNER AUSGABEORDNER
</translation>
    </message>
    <message>
        <source>Jobs: the folder&apos;s jpg, jpeg, png, tif(f), heic, mpo, jps and pns files in natural name order,
paired one after another for --input separate, or by name with --pair-by-name (a_L/a_R,
a-left/a-right in any case, and same-named files in the l/ and r/ sub-folders; a file
without a partner is skipped with the reason). Outputs are named after the (first) input,
or after the name both files of a named pair share.
Without --stored: --fov 63.4 --disparity-adj 200 --stereo-base 0.01924.
Exit status: 0 every job written or skipped as existing, 1 a job failed, 2 usage error,
130 stopped by SIGINT or SIGTERM (between stages; no partial file stays).
</source>
        <translation>Aufträge: die jpg-, jpeg-, png-, tif(f)-, heic-, mpo-, jps- und pns-Dateien des Ordners in
natürlicher Namensreihenfolge, bei --input separate der Reihe nach gepaart oder mit
--pair-by-name nach Namen (a_L/a_R, a-left/a-right in beliebiger Schreibweise sowie
gleichnamige Dateien in den Unterordnern l/ und r/; eine Datei ohne Partner wird mit
Begründung übersprungen). Ausgaben werden nach der (ersten) Eingabe benannt oder nach
dem gemeinsamen Namen beider Dateien eines Namenspaars.
Ohne --stored: --fov 63.4 --disparity-adj 200 --stereo-base 0.01924.
Exit-Status: 0 jeder Auftrag geschrieben oder als vorhanden übersprungen, 1 ein Auftrag
fehlgeschlagen, 2 Aufruffehler, 130 durch SIGINT oder SIGTERM angehalten (zwischen
zwei Schritten; keine unvollständige Datei bleibt zurück).
</translation>
    </message>
    <message>
        <source>[%1] %2/%3 %4  %5 elapsed, %6 left</source>
        <translation>[%1] %2/%3 %4  %5 vergangen, noch %6</translation>
    </message>
    <message>
        <source>%1 of %2 jobs done in %3: %4 written, %5 skipped as existing, %6 failed</source>
        <translation>%1 von %2 Aufträgen in %3 erledigt: %4 geschrieben, %5 als vorhanden übersprungen, %6 fehlgeschlagen</translation>
    </message>
    <message>
        <source>Processing aborted.</source>
        <translation>Verarbeitung abgebrochen.</translation>
    </message>
    <message>
        <source>Skipped without a partner:</source>
        <translation>Ohne Partner übersprungen:</translation>
    </message>
    <message>
        <source>Failed:</source>
        <translation>Fehlgeschlagen:</translation>
    </message>
    <message>
        <source>Overwrite %1? [y/N] </source>
        <translation>%1 überschreiben? [y/N] </translation>
    </message>
    <message>
        <source>two inputs are a separate pair; --input must be separate or left out</source>
        <translation>zwei Eingaben sind ein getrenntes Paar; --input muss separate sein oder entfallen</translation>
    </message>
    <message>
        <source>a separate pair needs LEFT RIGHT OUTPUT</source>
        <translation>ein getrenntes Paar braucht LINKS RECHTS AUSGABE</translation>
    </message>
    <message>
        <source>expected INPUT [RIGHT] OUTPUT</source>
        <translation>erwartet EINGABE [RECHTS] AUSGABE</translation>
    </message>
    <message>
        <source>%1 exists; pass --yes to overwrite it</source>
        <translation>%1 existiert; mit --yes wird die Datei überschrieben</translation>
    </message>
    <message>
        <source>usage: vorel-cli convert [options] INPUT [RIGHT] OUTPUT
</source>
        <translation>Aufruf: vorel-cli convert [Optionen] EINGABE [RECHTS] AUSGABE
</translation>
    </message>
    <message>
        <source>The spatial parameters default to the values last used in the window. The extension
of OUTPUT picks the encoding: jpg/jpeg, png, tif/tiff, heic, bmp (else PNG); --output mpo
and jps always write JPEG data. INPUT files ending in .jps or .pns are read as JPS.
Outputs keep the camera Exif of INPUT (of LEFT for a pair) unless --strip-metadata.
Exit status: 0 written, 1 the work failed, 2 usage error.
</source>
        <translation>Die Parameter räumlicher Fotos sind standardmäßig die zuletzt im Fenster verwendeten. Die
Endung von AUSGABE bestimmt die Kodierung: jpg/jpeg, png, tif/tiff, heic, bmp (sonst PNG);
--output mpo und jps schreiben immer JPEG-Daten. EINGABE-Dateien mit der Endung .jps oder
.pns werden als JPS gelesen. Ausgaben behalten die Kamera-Exif-Daten von EINGABE (bei einem
Paar von LINKS), außer mit --strip-metadata.
Exit-Status: 0 geschrieben, 1 die Arbeit ist fehlgeschlagen, 2 Aufruffehler.
</translation>
    </message>
    <message>
        <source>%1 expects %2, not &quot;%3&quot;</source>
        <translation>%1 erwartet %2, nicht „%3“</translation>
    </message>
    <message>
        <source>%1 expects %2 comma-separated numbers</source>
        <translation>%1 erwartet %2 durch Kommas getrennte Zahlen</translation>
    </message>
    <message>
        <source>%1: &quot;%2&quot; is not a number</source>
        <translation>%1: „%2“ ist keine Zahl</translation>
    </message>
    <message>
        <source>--shard expects I/N with 0 &lt;= I &lt; N, not &quot;%1&quot;</source>
        <translation>--shard erwartet I/N mit 0 &lt;= I &lt; N, nicht „%1“</translation>
    </message>
    <message>
        <source>how each input holds its pair (batch default: sbs; convert
default: as the window opens the file, two inputs a pair)</source>
        <translation>wie jede Eingabe ihr Paar enthält (Standard bei batch: sbs;
bei convert: wie das Fenster die Datei öffnet, zwei
Eingaben ein Paar)</translation>
    </message>
    <message>
        <source>what to write (default: sbs); border: framed as last set
up in the window; separate: NAME_L and NAME_R files;
mpo and jps: always JPEG data, left view first in an
MPO, right view first in a JPS</source>
        <translation>was geschrieben wird (Standard: sbs); border: gerahmt wie
zuletzt im Fenster eingestellt; separate: Dateien NAME_L
und NAME_R; mpo und jps: immer JPEG-Daten, im MPO die
linke Ansicht zuerst, im JPS die rechte</translation>
    </message>
    <message>
        <source>file format of the outputs (default: jpg; spatial
output is always heic)</source>
        <translation>Dateiformat der Ausgaben (Standard: jpg; räumliche
Ausgabe ist immer heic)</translation>
    </message>
    <message>
        <source>separate input: pair NAME_L with NAME_R, NAME-left with
NAME-right (any case) and l/NAME with r/NAME instead of
consecutive files</source>
        <translation>getrennte Eingabe: NAME_L mit NAME_R, NAME-left mit
NAME-right (beliebige Schreibweise) und l/NAME mit
r/NAME paaren statt aufeinanderfolgender Dateien</translation>
    </message>
    <message>
        <source>write no camera Exif (date, camera, lens, exposure, GPS)
into the outputs</source>
        <translation>keine Kamera-Exif-Daten (Datum, Kamera, Objektiv,
Belichtung, GPS) in die Ausgaben schreiben</translation>
    </message>
    <message>
        <source>exchange left and right</source>
        <translation>links und rechts vertauschen</translation>
    </message>
    <message>
        <source>align the views automatically (a pair without matches
is written unaligned, with a warning)</source>
        <translation>die Ansichten automatisch ausrichten (ein Paar ohne
Übereinstimmungen wird unausgerichtet und mit einer
Warnung geschrieben)</translation>
    </message>
    <message>
        <source>match the colours of the other view to this one, which
stays unchanged (left and right as shown, after --swap)</source>
        <translation>Farbabgleich der anderen Ansicht an diese, die unverändert
bleibt (links und rechts wie angezeigt, nach --swap)</translation>
    </message>
    <message>
        <source>--color-ref expects left or right, not &quot;%1&quot;</source>
        <translation>--color-ref erwartet left oder right, nicht „%1“</translation>
    </message>
    <message>
        <source>manual adjustment: offsets in percent of the width,
rotation in degrees, scale in percent</source>
        <translation>manuelle Anpassung: Versatz in Prozent der Breite,
Drehung in Grad, Skalierung in Prozent</translation>
    </message>
    <message>
        <source>cut this rectangle (pixels of the adjusted pair) from
both views</source>
        <translation>dieses Rechteck (Pixel des angepassten Paars) aus
beiden Ansichten ausschneiden</translation>
    </message>
    <message>
        <source>--crop expects X,Y at least 0 and W,H at least 1</source>
        <translation>--crop erwartet X,Y mindestens 0 und W,H mindestens 1</translation>
    </message>
    <message>
        <source>bring both views to W x H (default: stretch)</source>
        <translation>beide Ansichten auf W x H bringen (Standard: stretch)</translation>
    </message>
    <message>
        <source>--resize expects a width and height of at least 1</source>
        <translation>--resize erwartet eine Breite und Höhe von mindestens 1</translation>
    </message>
    <message>
        <source>spatial output: horizontal field of view in degrees</source>
        <translation>räumliche Ausgabe: horizontales Sichtfeld in Grad</translation>
    </message>
    <message>
        <source>--fov expects degrees between 0 and 180, not &quot;%1&quot;</source>
        <translation>--fov erwartet Grad zwischen 0 und 180, nicht „%1“</translation>
    </message>
    <message>
        <source>spatial output: disparity adjustment</source>
        <translation>räumliche Ausgabe: Disparitätsanpassung</translation>
    </message>
    <message>
        <source>--disparity-adj expects an integer, not &quot;%1&quot;</source>
        <translation>--disparity-adj erwartet eine ganze Zahl, nicht „%1“</translation>
    </message>
    <message>
        <source>spatial output: stereo base in metres</source>
        <translation>räumliche Ausgabe: Stereobasis in Metern</translation>
    </message>
    <message>
        <source>--stereo-base expects metres above 0, not &quot;%1&quot;</source>
        <translation>--stereo-base erwartet Meter über 0, nicht „%1“</translation>
    </message>
    <message>
        <source>overwrite existing outputs</source>
        <translation>vorhandene Ausgaben überschreiben</translation>
    </message>
    <message>
        <source>start from the settings the batch window saved last
(else from the defaults); the options given override them</source>
        <translation>von den zuletzt im Stapelfenster gespeicherten
Einstellungen ausgehen (sonst von den Standardwerten);
angegebene Optionen haben Vorrang</translation>
    </message>
    <message>
        <source>process only the jobs whose position in the job list is
I modulo N (I from 0 to N-1): N shards make one full run</source>
        <translation>nur die Aufträge verarbeiten, deren Position in der
Auftragsliste modulo N gleich I ist (I von 0 bis N-1):
N Teile ergeben einen vollständigen Lauf</translation>
    </message>
    <message>
        <source>skip a job whose outputs all exist (resume a run)</source>
        <translation>Aufträge überspringen, deren Ausgaben alle existieren
(einen Lauf fortsetzen)</translation>
    </message>
    <message>
        <source>append one JSON line per finished job to FILE</source>
        <translation>je erledigtem Auftrag eine JSON-Zeile an FILE anhängen</translation>
    </message>
    <message>
        <source>list the jobs and their outputs on stdout, write nothing</source>
        <translation>die Aufträge und ihre Ausgaben auf stdout auflisten,
nichts schreiben</translation>
    </message>
    <message>
        <source>%1 is an option of vorel-cli batch</source>
        <translation>%1 ist eine Option von vorel-cli batch</translation>
    </message>
    <message>
        <source>unknown option %1</source>
        <translation>unbekannte Option %1</translation>
    </message>
    <message>
        <source>%1 needs a value</source>
        <translation>%1 braucht einen Wert</translation>
    </message>
    <message>
        <source>library takes at most one FOLDER</source>
        <translation>library nimmt höchstens einen ORDNER</translation>
    </message>
    <message>
        <source>not a folder: </source>
        <translation>kein Ordner: </translation>
    </message>
    <message>
        <source>no thumbnail for </source>
        <translation>kein Vorschaubild für </translation>
    </message>
    <message>
        <source>usage: vorel-cli library [--thumbnails] [FOLDER]
Without FOLDER, lists the photo library&apos;s albums (the Pictures folder as &quot;All Photos&quot;, its
sub-folders, the folders added in the settings) as JSON lines {id, title, count, cover}.
With FOLDER, lists the pictures in it and its sub-folders as JSON lines
{path, album, kind, width, height}; kind is mpo, spatial, sbs, left, right or single.
  --thumbnails  also fill the shared thumbnail cache (normal and large) for them
</source>
        <translation>Aufruf: vorel-cli library [--thumbnails] [ORDNER]
Ohne ORDNER werden die Alben der Fotomediathek (der Bilder-Ordner als &quot;All Photos&quot;, seine
Unterordner, die in den Einstellungen hinzugefügten Ordner) als JSON-Zeilen
{id, title, count, cover} aufgelistet.
Mit ORDNER werden die Bilder darin und in seinen Unterordnern als JSON-Zeilen
{path, album, kind, width, height} aufgelistet; kind ist mpo, spatial, sbs, left, right
oder single.
  --thumbnails  füllt zusätzlich den gemeinsamen Vorschaubild-Cache (normal und groß)
</translation>
    </message>
    <message>
        <source>orientation expects a VALUE and at least one FILE</source>
        <translation>orientation erwartet einen WERT und mindestens eine DATEI</translation>
    </message>
    <message>
        <source>orientation VALUE must be 1..8, not &quot;%1&quot;</source>
        <translation>orientation: WERT muss 1..8 sein, nicht „%1“</translation>
    </message>
    <message>
        <source>usage: vorel-cli orientation VALUE FILE...
Sets the EXIF orientation of each JPEG, PNG, TIFF or HEIC file in place.
VALUE:
</source>
        <translation>Aufruf: vorel-cli orientation WERT DATEI...
Setzt die EXIF-Ausrichtung jeder JPEG-, PNG-, TIFF- oder HEIC-Datei direkt in der Datei.
WERT:
</translation>
    </message>
</context>
</TS>
