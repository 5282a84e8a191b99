<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
<name></name>
<message id="KajuLocale.kBadDownloadMessage">
    <source>The downloaded file appears to be corrupted.</source>
    <translation>Die heruntergeladene Datei ist offenbar beschädigt.</translation>
</message>
<message id="KajuLocale.kBinaryInfoInvalidReason">
    <source>Binary information is not valid</source>
    <translation>Binärdatei-Angaben sind ungültig</translation>
</message>
<message id="KajuLocale.kCancelButton">
    <source>&amp;Cancel</source>
    <translation>&amp;Abbrechen</translation>
</message>
<message id="KajuLocale.kCannotSkipVersionsMessage">
    <source>You cannot skip versions until you have updated to version &lt;&lt;Version&gt;&gt; or beyond.</source>
    <translation>Sie können keine Versionen überspringen, bevor Sie auf Version &lt;&lt;Version&gt;&gt; oder eine neuere aktualisiert haben.</translation>
</message>
<message id="KajuLocale.kChoose64bitMessage">
    <source>The update is only available as 64-bit. Proceed?</source>
    <translation>Das Update gibt es nur in 64 Bit. Fortfahren?</translation>
</message>
<message id="KajuLocale.kChooseBetweenBitsMessage">
    <source>This update is also available as 64-bit. Which would you prefer?</source>
    <translation>Dieses Update gibt es auch in 64 Bit. Welche Version möchten Sie?</translation>
</message>
<message id="KajuLocale.kCurrenlyUsing32bitMessage">
    <source>You are currently using the 32-bit version.</source>
    <translation>Sie verwenden derzeit die 32-Bit-Version.</translation>
</message>
<message id="KajuLocale.kDiskFullMessage">
    <source>The disk is full.</source>
    <translation>Der Datenträger ist voll.</translation>
</message>
<message id="KajuLocale.kDownloadingMessage">
    <source>Downloading...</source>
    <translation>Wird heruntergeladen …</translation>
</message>
<message id="KajuLocale.kDryRunMessage">
    <source>(Dry run, not really installing)</source>
    <translation>(Probelauf, es wird nichts installiert)</translation>
</message>
<message id="KajuLocale.kErrorBadUpdateData">
    <source>The update data cannot be read.</source>
    <translation>Die Update-Daten können nicht gelesen werden.</translation>
</message>
<message id="KajuLocale.kErrorIncorrectPacketMarker">
    <source>The update packet signature marker was incorrect.</source>
    <translation>Die Kennung vor der Signatur des Update-Pakets ist falsch.</translation>
</message>
<message id="KajuLocale.kErrorIncorrectPacketSignature">
    <source>The RSA signature of the update packet cannot be verified.</source>
    <translation>Die RSA-Signatur des Update-Pakets lässt sich nicht bestätigen.</translation>
</message>
<message id="KajuLocale.kErrorNoUpdateData">
    <source>No update data was available.</source>
    <translation>Es liegen keine Update-Daten vor.</translation>
</message>
<message id="KajuLocale.kErrorOccurredMessage">
    <source>An error has occurred. Would you like to try again now or later?</source>
    <translation>Ein Fehler ist aufgetreten. Möchten Sie es jetzt oder später noch einmal versuchen?</translation>
</message>
<message id="KajuLocale.kExplain64bitMessage">
    <source>Your system may not be able to run the 64-bit version. If you’re not sure, do not select it.</source>
    <translation>Auf Ihrem System läuft die 64-Bit-Version möglicherweise nicht. Wenn Sie sich nicht sicher sind, wählen Sie sie nicht aus.</translation>
</message>
<message id="KajuLocale.kGenericErrorMessage">
    <source>An error has occurred.</source>
    <translation>Ein Fehler ist aufgetreten.</translation>
</message>
<message id="KajuLocale.kInstallButton">
    <source>Install Update</source>
    <translation>Update installieren</translation>
</message>
<message id="KajuLocale.kLaterButton">
    <source>Later</source>
    <translation>Später</translation>
</message>
<message id="KajuLocale.kMainNotice">
    <source>A new version of &lt;&lt;AppName&gt;&gt; is available!</source>
    <translation>Eine neue Version von &lt;&lt;AppName&gt;&gt; ist verfügbar!</translation>
</message>
<message id="KajuLocale.kMissingAppNameReason">
    <source>Missing app name</source>
    <translation>Programmname fehlt</translation>
</message>
<message id="KajuLocale.kMissingReason">
    <source>Missing</source>
    <translation>Es fehlt:</translation>
</message>
<message id="KajuLocale.kNoProgramMessage">
    <source>The update does not contain the program.</source>
    <translation>Das Update enthält das Programm nicht.</translation>
</message>
<message id="KajuLocale.kNothingStartsMessage">
    <source>No program can be started from the temporary folder.</source>
    <translation>Aus dem temporären Ordner lässt sich kein Programm starten.</translation>
</message>
<message id="KajuLocale.kNoUpdateInfoMessage">
    <source>NO UPDATE INFORMATION</source>
    <translation>KEINE INFORMATIONEN ZUM UPDATE</translation>
</message>
<message id="KajuLocale.kNoMD5Message">
    <source>The file cannot be checked, since MD5 is switched off on this system.</source>
    <translation>Die Datei kann nicht geprüft werden, weil MD5 auf diesem System abgeschaltet ist.</translation>
</message>
<message id="KajuLocale.kPaymentRequiredMessage">
    <source>This update is not free and will require payment. Proceed anyway?</source>
    <translation>Dieses Update ist nicht kostenlos und muss bezahlt werden. Trotzdem fortfahren?</translation>
</message>
<message id="KajuLocale.kProceedButton">
    <source>Proceed</source>
    <translation>Fortfahren</translation>
</message>
<message id="KajuLocale.kProcessingFileMessage">
    <source>Processing file...</source>
    <translation>Datei wird verarbeitet …</translation>
</message>
<message id="KajuLocale.kProgressName">
    <source>Progress</source>
    <translation>Fortschritt</translation>
</message>
<message id="KajuLocale.kQuitButton">
    <source>Quit &amp;&amp; Install</source>
    <translation>Beenden &amp;&amp; installieren</translation>
</message>
<message id="KajuLocale.kReadyMessage">
    <source>Ready to install</source>
    <translation>Bereit zur Installation</translation>
</message>
<message id="KajuLocale.kReleaseNotesLabel">
    <source>Release Notes:</source>
    <translation>Versionshinweise:</translation>
</message>
<message id="KajuLocale.kReleaseNotesName">
    <source>Release notes</source>
    <translation>Versionshinweise</translation>
</message>
<message id="KajuLocale.kRemindMeLaterButton">
    <source>Remind Me Later</source>
    <translation>Später erinnern</translation>
</message>
<message id="KajuLocale.kScriptNotWrittenMessage">
    <source>The install script cannot be written.</source>
    <translation>Das Installationsskript kann nicht geschrieben werden.</translation>
</message>
<message id="KajuLocale.kSecondaryNoticeMultiple">
    <source>You have version &lt;&lt;ThisVersion&gt;&gt; and there are multiple updates available. Install one?</source>
    <translation>Sie haben Version &lt;&lt;ThisVersion&gt;&gt;, und es sind mehrere Updates verfügbar. Möchten Sie eines davon installieren?</translation>
</message>
<message id="KajuLocale.kSecondaryNoticeOne">
    <source>You have version &lt;&lt;ThisVersion&gt;&gt;. Would you like to install version &lt;&lt;NewVersion&gt;&gt;?</source>
    <translation>Sie haben Version &lt;&lt;ThisVersion&gt;&gt;. Möchten Sie Version &lt;&lt;NewVersion&gt;&gt; installieren?</translation>
</message>
<message id="KajuLocale.kSkipVersionButton">
    <source>Skip Version</source>
    <translation>Version überspringen</translation>
</message>
<message id="KajuLocale.kStopButton">
    <source>Stop</source>
    <translation>Stopp</translation>
</message>
<message id="KajuLocale.kThisApplication">
    <source>this application</source>
    <translation>dieser Anwendung</translation>
</message>
<message id="KajuLocale.kTimedOutMessage">
    <source>The operation has timed out.</source>
    <translation>Der Vorgang hat das Zeitlimit überschritten.</translation>
</message>
<message id="KajuLocale.kTryAgainButton">
    <source>Try Again</source>
    <translation>Erneut versuchen</translation>
</message>
<message id="KajuLocale.kTryLaterButton">
    <source>Try Later</source>
    <translation>Später versuchen</translation>
</message>
<message id="KajuLocale.kUpdateFailedExplanation">
    <source>This version goes on. The reason is in the system log, under “Kaju Update Script”.</source>
    <translation>Diese Version läuft weiter. Der Grund steht im Systemprotokoll unter „Kaju Update Script“.</translation>
</message>
<message id="KajuLocale.kUpdateFailedMessage">
    <source>The update could not be installed.</source>
    <translation>Das Update konnte nicht installiert werden.</translation>
</message>
<message id="KajuLocale.kUpdateGoneMessage">
    <source>The unpacked update is no longer there.</source>
    <translation>Das entpackte Update ist nicht mehr da.</translation>
</message>
<message id="KajuLocale.kUse32bitLabel">
    <source>Stay With 32-bit</source>
    <translation>Bei 32 Bit bleiben</translation>
</message>
<message id="KajuLocale.kUse64bitLabel">
    <source>Switch To 64-bit</source>
    <translation>Zu 64 Bit wechseln</translation>
</message>
<message id="KajuLocale.kVersionMustBeInFormReason">
    <source>Version must be in one of these forms</source>
    <translation>Die Version muss eine dieser Formen haben</translation>
</message>
<message id="KajuLocale.kVersionsLabel">
    <source>Available Versions:</source>
    <translation>Versionen:</translation>
</message>
<message id="KajuLocale.kVersionsName">
    <source>Available versions</source>
    <translation>Verfügbare Versionen</translation>
</message>
<message id="KajuLocale.kWindowTitle">
    <source>Update Available</source>
    <translation>Update verfügbar</translation>
</message>
<message id="KajuException.kErrorCantFindLibsFolder">
    <source>Can’t locate this applications Libs folder.</source>
    <translation>Der Ordner „Libs“ dieser Anwendung wurde nicht gefunden.</translation>
</message>
<message id="KajuException.kErrorImproperFunction">
    <source>This function cannot be used on this platform.</source>
    <translation>Diese Funktion kann auf dieser Plattform nicht verwendet werden.</translation>
</message>
<message id="KajuException.kErrorMissingUpdateURL">
    <source>The update URL is missing.</source>
    <translation>Die Update-Adresse fehlt.</translation>
</message>
<message id="DesktopTexts.kCancelButton">
    <source>Cancel</source>
    <translation>Abbrechen</translation>
</message>
<message id="DesktopTexts.kCautionSign">
    <source>Caution</source>
    <translation>Achtung</translation>
</message>
<message id="DesktopTexts.kCopyCommand">
    <source>Copy</source>
    <translation>Kopieren</translation>
</message>
<message id="DesktopTexts.kCopyLinkCommand">
    <source>Copy Link Address</source>
    <translation>Link-Adresse kopieren</translation>
</message>
<message id="DesktopTexts.kNoBrowserMessage">
    <source>This desktop has no browser to open the address with:</source>
    <translation>Auf diesem Desktop gibt es keinen Browser, um die Adresse zu öffnen:</translation>
</message>
<message id="DesktopTexts.kNoButton">
    <source>No</source>
    <translation>Nein</translation>
</message>
<message id="DesktopTexts.kNoTemporaryFileMessage">
    <source>No temporary file can be made at &lt;&lt;Path&gt;&gt;: &lt;&lt;Reason&gt;&gt;.</source>
    <translation>Unter &lt;&lt;Path&gt;&gt; kann keine temporäre Datei angelegt werden: &lt;&lt;Reason&gt;&gt;.</translation>
</message>
<message id="DesktopTexts.kNoTemporaryFolderMessage">
    <source>No temporary folder can be made at &lt;&lt;Path&gt;&gt;: &lt;&lt;Reason&gt;&gt;.</source>
    <translation>Unter &lt;&lt;Path&gt;&gt; kann kein temporärer Ordner angelegt werden: &lt;&lt;Reason&gt;&gt;.</translation>
</message>
<message id="DesktopTexts.kOKButton">
    <source>OK</source>
    <translation>OK</translation>
</message>
<message id="DesktopTexts.kPageIsCutNotice">
    <source>The rest of this page is not shown.</source>
    <translation>Der Rest dieser Seite wird nicht angezeigt.</translation>
</message>
<message id="DesktopTexts.kSelectAllCommand">
    <source>Select All</source>
    <translation>Alles auswählen</translation>
</message>
<message id="DesktopTexts.kTextIsCutNotice">
    <source>&lt;&lt;Count&gt;&gt; more characters are not shown</source>
    <translation>&lt;&lt;Count&gt;&gt; weitere Zeichen werden nicht angezeigt</translation>
</message>
</context>
</TS>
