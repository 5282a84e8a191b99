<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="fr" sourcelanguage="en">
<context>
<name></name>
<message id="KajuLocale.kBadDownloadMessage">
    <source>The downloaded file appears to be corrupted.</source>
    <translation>Le fichier téléchargé semble endommagé.</translation>
</message>
<message id="KajuLocale.kBinaryInfoInvalidReason">
    <source>Binary information is not valid</source>
    <translation>informations sur le fichier binaire non valides</translation>
</message>
<message id="KajuLocale.kCancelButton">
    <source>&amp;Cancel</source>
    <translation>&amp;Annuler</translation>
</message>
<message id="KajuLocale.kCannotSkipVersionsMessage">
    <source>You cannot skip versions until you have updated to version &lt;&lt;Version&gt;&gt; or beyond.</source>
    <translation>Vous ne pouvez pas ignorer de version avant d’être passé à la version &lt;&lt;Version&gt;&gt; ou à une version ultérieure.</translation>
</message>
<message id="KajuLocale.kChoose64bitMessage">
    <source>The update is only available as 64-bit. Proceed?</source>
    <translation>Cette mise à jour n’existe qu’en 64 bits. Continuer ?</translation>
</message>
<message id="KajuLocale.kChooseBetweenBitsMessage">
    <source>This update is also available as 64-bit. Which would you prefer?</source>
    <translation>Cette mise à jour existe aussi en 64 bits. Laquelle préférez-vous ?</translation>
</message>
<message id="KajuLocale.kCurrenlyUsing32bitMessage">
    <source>You are currently using the 32-bit version.</source>
    <translation>Vous utilisez actuellement la version 32 bits.</translation>
</message>
<message id="KajuLocale.kDiskFullMessage">
    <source>The disk is full.</source>
    <translation>Le disque est plein.</translation>
</message>
<message id="KajuLocale.kDownloadingMessage">
    <source>Downloading...</source>
    <translation>Téléchargement en cours…</translation>
</message>
<message id="KajuLocale.kDryRunMessage">
    <source>(Dry run, not really installing)</source>
    <translation>(Simulation, rien ne sera installé)</translation>
</message>
<message id="KajuLocale.kErrorBadUpdateData">
    <source>The update data cannot be read.</source>
    <translation>Les données de mise à jour sont illisibles.</translation>
</message>
<message id="KajuLocale.kErrorIncorrectPacketMarker">
    <source>The update packet signature marker was incorrect.</source>
    <translation>Le marqueur de signature du paquet de mise à jour est incorrect.</translation>
</message>
<message id="KajuLocale.kErrorIncorrectPacketSignature">
    <source>The RSA signature of the update packet cannot be verified.</source>
    <translation>La signature RSA du paquet de mise à jour n’a pas pu être vérifiée.</translation>
</message>
<message id="KajuLocale.kErrorNoUpdateData">
    <source>No update data was available.</source>
    <translation>Aucune donnée de mise à jour n’est disponible.</translation>
</message>
<message id="KajuLocale.kErrorOccurredMessage">
    <source>An error has occurred. Would you like to try again now or later?</source>
    <translation>Une erreur s’est produite. Voulez-vous réessayer maintenant ou plus tard ?</translation>
</message>
<message id="KajuLocale.kExplain64bitMessage">
    <source>Your system may not be able to run the 64-bit version. If you’re not sure, do not select it.</source>
    <translation>Il est possible que votre système ne puisse pas exécuter la version 64 bits. En cas de doute, ne la choisissez pas.</translation>
</message>
<message id="KajuLocale.kGenericErrorMessage">
    <source>An error has occurred.</source>
    <translation>Une erreur s’est produite.</translation>
</message>
<message id="KajuLocale.kInstallButton">
    <source>Install Update</source>
    <translation>Installer la mise à jour</translation>
</message>
<message id="KajuLocale.kLaterButton">
    <source>Later</source>
    <translation>Plus tard</translation>
</message>
<message id="KajuLocale.kMainNotice">
    <source>A new version of &lt;&lt;AppName&gt;&gt; is available!</source>
    <translation>Une nouvelle version de &lt;&lt;AppName&gt;&gt; est disponible !</translation>
</message>
<message id="KajuLocale.kMissingAppNameReason">
    <source>Missing app name</source>
    <translation>Nom de l’application manquant</translation>
</message>
<message id="KajuLocale.kMissingReason">
    <source>Missing</source>
    <translation>Élément manquant :</translation>
</message>
<message id="KajuLocale.kNoProgramMessage">
    <source>The update does not contain the program.</source>
    <translation>La mise à jour ne contient pas le programme.</translation>
</message>
<message id="KajuLocale.kNothingStartsMessage">
    <source>No program can be started from the temporary folder.</source>
    <translation>Aucun programme ne peut être lancé depuis le dossier temporaire.</translation>
</message>
<message id="KajuLocale.kNoUpdateInfoMessage">
    <source>NO UPDATE INFORMATION</source>
    <translation>AUCUNE INFORMATION SUR LA MISE À JOUR</translation>
</message>
<message id="KajuLocale.kNoMD5Message">
    <source>The file cannot be checked, since MD5 is switched off on this system.</source>
    <translation>Le fichier ne peut pas être vérifié, car MD5 est désactivé sur ce système.</translation>
</message>
<message id="KajuLocale.kPaymentRequiredMessage">
    <source>This update is not free and will require payment. Proceed anyway?</source>
    <translation>Cette mise à jour n’est pas gratuite : un paiement sera nécessaire. Continuer quand même ?</translation>
</message>
<message id="KajuLocale.kProceedButton">
    <source>Proceed</source>
    <translation>Continuer</translation>
</message>
<message id="KajuLocale.kProcessingFileMessage">
    <source>Processing file...</source>
    <translation>Traitement du fichier…</translation>
</message>
<message id="KajuLocale.kProgressName">
    <source>Progress</source>
    <translation>Progression</translation>
</message>
<message id="KajuLocale.kQuitButton">
    <source>Quit &amp;&amp; Install</source>
    <translation>Quitter &amp;&amp; installer</translation>
</message>
<message id="KajuLocale.kReadyMessage">
    <source>Ready to install</source>
    <translation>Prêt à installer</translation>
</message>
<message id="KajuLocale.kReleaseNotesLabel">
    <source>Release Notes:</source>
    <translation>Notes de version :</translation>
</message>
<message id="KajuLocale.kReleaseNotesName">
    <source>Release notes</source>
    <translation>Notes de version</translation>
</message>
<message id="KajuLocale.kRemindMeLaterButton">
    <source>Remind Me Later</source>
    <translation>Rappeler plus tard</translation>
</message>
<message id="KajuLocale.kScriptNotWrittenMessage">
    <source>The install script cannot be written.</source>
    <translation>Le script d’installation ne peut pas être écrit.</translation>
</message>
<message id="KajuLocale.kSecondaryNoticeMultiple">
    <source>You have version &lt;&lt;ThisVersion&gt;&gt; and there are multiple updates available. Install one?</source>
    <translation>Vous avez la version &lt;&lt;ThisVersion&gt;&gt; et plusieurs mises à jour sont disponibles. Voulez-vous en installer une ?</translation>
</message>
<message id="KajuLocale.kSecondaryNoticeOne">
    <source>You have version &lt;&lt;ThisVersion&gt;&gt;. Would you like to install version &lt;&lt;NewVersion&gt;&gt;?</source>
    <translation>Vous avez la version &lt;&lt;ThisVersion&gt;&gt;. Voulez-vous installer la version &lt;&lt;NewVersion&gt;&gt; ?</translation>
</message>
<message id="KajuLocale.kSkipVersionButton">
    <source>Skip Version</source>
    <translation>Ignorer cette version</translation>
</message>
<message id="KajuLocale.kStopButton">
    <source>Stop</source>
    <translation>Arrêter</translation>
</message>
<message id="KajuLocale.kThisApplication">
    <source>this application</source>
    <translation>cette application</translation>
</message>
<message id="KajuLocale.kTimedOutMessage">
    <source>The operation has timed out.</source>
    <translation>Le délai imparti à l’opération est écoulé.</translation>
</message>
<message id="KajuLocale.kTryAgainButton">
    <source>Try Again</source>
    <translation>Réessayer</translation>
</message>
<message id="KajuLocale.kTryLaterButton">
    <source>Try Later</source>
    <translation>Réessayer plus tard</translation>
</message>
<message id="KajuLocale.kUpdateFailedExplanation">
    <source>This version goes on. The reason is in the system log, under “Kaju Update Script”.</source>
    <translation>Cette version reste en service. La raison figure dans le journal du système, sous « Kaju Update Script ».</translation>
</message>
<message id="KajuLocale.kUpdateFailedMessage">
    <source>The update could not be installed.</source>
    <translation>La mise à jour n’a pas pu être installée.</translation>
</message>
<message id="KajuLocale.kUpdateGoneMessage">
    <source>The unpacked update is no longer there.</source>
    <translation>La mise à jour décompressée n’est plus là.</translation>
</message>
<message id="KajuLocale.kUse32bitLabel">
    <source>Stay With 32-bit</source>
    <translation>Rester en 32 bits</translation>
</message>
<message id="KajuLocale.kUse64bitLabel">
    <source>Switch To 64-bit</source>
    <translation>Passer en 64 bits</translation>
</message>
<message id="KajuLocale.kVersionMustBeInFormReason">
    <source>Version must be in one of these forms</source>
    <translation>La version doit avoir l’une de ces formes</translation>
</message>
<message id="KajuLocale.kVersionsLabel">
    <source>Available Versions:</source>
    <translation>Versions :</translation>
</message>
<message id="KajuLocale.kVersionsName">
    <source>Available versions</source>
    <translation>Versions disponibles</translation>
</message>
<message id="KajuLocale.kWindowTitle">
    <source>Update Available</source>
    <translation>Mise à jour disponible</translation>
</message>
<message id="KajuException.kErrorCantFindLibsFolder">
    <source>Can’t locate this applications Libs folder.</source>
    <translation>Le dossier « Libs » de cette application est introuvable.</translation>
</message>
<message id="KajuException.kErrorImproperFunction">
    <source>This function cannot be used on this platform.</source>
    <translation>Cette fonction n’est pas utilisable sur cette plateforme.</translation>
</message>
<message id="KajuException.kErrorMissingUpdateURL">
    <source>The update URL is missing.</source>
    <translation>L’adresse des mises à jour est manquante.</translation>
</message>
<message id="DesktopTexts.kCancelButton">
    <source>Cancel</source>
    <translation>Annuler</translation>
</message>
<message id="DesktopTexts.kCautionSign">
    <source>Caution</source>
    <translation>Attention</translation>
</message>
<message id="DesktopTexts.kCopyCommand">
    <source>Copy</source>
    <translation>Copier</translation>
</message>
<message id="DesktopTexts.kCopyLinkCommand">
    <source>Copy Link Address</source>
    <translation>Copier l’adresse du lien</translation>
</message>
<message id="DesktopTexts.kNoBrowserMessage">
    <source>This desktop has no browser to open the address with:</source>
    <translation>Ce bureau n’a pas de navigateur pour ouvrir l’adresse :</translation>
</message>
<message id="DesktopTexts.kNoButton">
    <source>No</source>
    <translation>Non</translation>
</message>
<message id="DesktopTexts.kNoTemporaryFileMessage">
    <source>No temporary file can be made at &lt;&lt;Path&gt;&gt;: &lt;&lt;Reason&gt;&gt;.</source>
    <translation>Impossible de créer un fichier temporaire dans &lt;&lt;Path&gt;&gt; : &lt;&lt;Reason&gt;&gt;.</translation>
</message>
<message id="DesktopTexts.kNoTemporaryFolderMessage">
    <source>No temporary folder can be made at &lt;&lt;Path&gt;&gt;: &lt;&lt;Reason&gt;&gt;.</source>
    <translation>Impossible de créer un dossier temporaire dans &lt;&lt;Path&gt;&gt; : &lt;&lt;Reason&gt;&gt;.</translation>
</message>
<message id="DesktopTexts.kOKButton">
    <source>OK</source>
    <translation>OK</translation>
</message>
<message id="DesktopTexts.kPageIsCutNotice">
    <source>The rest of this page is not shown.</source>
    <translation>Le reste de cette page n’est pas affiché.</translation>
</message>
<message id="DesktopTexts.kSelectAllCommand">
    <source>Select All</source>
    <translation>Tout sélectionner</translation>
</message>
<message id="DesktopTexts.kTextIsCutNotice">
    <source>&lt;&lt;Count&gt;&gt; more characters are not shown</source>
    <translation>&lt;&lt;Count&gt;&gt; autres caractères ne sont pas affichés</translation>
</message>
</context>
</TS>
