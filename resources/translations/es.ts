<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="es" sourcelanguage="en">
<context>
<name></name>
<message id="KajuLocale.kBadDownloadMessage">
    <source>The downloaded file appears to be corrupted.</source>
    <translation>Parece que el archivo descargado está dañado.</translation>
</message>
<message id="KajuLocale.kBinaryInfoInvalidReason">
    <source>Binary information is not valid</source>
    <translation>información del binario no válida</translation>
</message>
<message id="KajuLocale.kCancelButton">
    <source>&amp;Cancel</source>
    <translation>&amp;Cancelar</translation>
</message>
<message id="KajuLocale.kCannotSkipVersionsMessage">
    <source>You cannot skip versions until you have updated to version &lt;&lt;Version&gt;&gt; or beyond.</source>
    <translation>No puede omitir versiones hasta que haya actualizado a la versión &lt;&lt;Version&gt;&gt; o a una posterior.</translation>
</message>
<message id="KajuLocale.kChoose64bitMessage">
    <source>The update is only available as 64-bit. Proceed?</source>
    <translation>La actualización solo está disponible en 64 bits. ¿Desea continuar?</translation>
</message>
<message id="KajuLocale.kChooseBetweenBitsMessage">
    <source>This update is also available as 64-bit. Which would you prefer?</source>
    <translation>Esta actualización también está disponible en 64 bits. ¿Cuál prefiere?</translation>
</message>
<message id="KajuLocale.kCurrenlyUsing32bitMessage">
    <source>You are currently using the 32-bit version.</source>
    <translation>Actualmente usa la versión de 32 bits.</translation>
</message>
<message id="KajuLocale.kDiskFullMessage">
    <source>The disk is full.</source>
    <translation>El disco está lleno.</translation>
</message>
<message id="KajuLocale.kDownloadingMessage">
    <source>Downloading...</source>
    <translation>Descargando…</translation>
</message>
<message id="KajuLocale.kDryRunMessage">
    <source>(Dry run, not really installing)</source>
    <translation>(Simulación: no se instalará nada)</translation>
</message>
<message id="KajuLocale.kErrorBadUpdateData">
    <source>The update data cannot be read.</source>
    <translation>No se pueden leer los datos de actualización.</translation>
</message>
<message id="KajuLocale.kErrorIncorrectPacketMarker">
    <source>The update packet signature marker was incorrect.</source>
    <translation>El marcador de firma del paquete de actualización no es correcto.</translation>
</message>
<message id="KajuLocale.kErrorIncorrectPacketSignature">
    <source>The RSA signature of the update packet cannot be verified.</source>
    <translation>No se puede verificar la firma RSA del paquete de actualización.</translation>
</message>
<message id="KajuLocale.kErrorNoUpdateData">
    <source>No update data was available.</source>
    <translation>No hay datos de actualización disponibles.</translation>
</message>
<message id="KajuLocale.kErrorOccurredMessage">
    <source>An error has occurred. Would you like to try again now or later?</source>
    <translation>Se ha producido un error. ¿Desea volver a intentarlo ahora o más tarde?</translation>
</message>
<message id="KajuLocale.kExplain64bitMessage">
    <source>Your system may not be able to run the 64-bit version. If you’re not sure, do not select it.</source>
    <translation>Es posible que su sistema no pueda ejecutar la versión de 64 bits. Si no está seguro, no la seleccione.</translation>
</message>
<message id="KajuLocale.kGenericErrorMessage">
    <source>An error has occurred.</source>
    <translation>Se ha producido un error.</translation>
</message>
<message id="KajuLocale.kInstallButton">
    <source>Install Update</source>
    <translation>Instalar actualización</translation>
</message>
<message id="KajuLocale.kLaterButton">
    <source>Later</source>
    <translation>Más tarde</translation>
</message>
<message id="KajuLocale.kMainNotice">
    <source>A new version of &lt;&lt;AppName&gt;&gt; is available!</source>
    <translation>¡Hay una nueva versión de &lt;&lt;AppName&gt;&gt; disponible!</translation>
</message>
<message id="KajuLocale.kMissingAppNameReason">
    <source>Missing app name</source>
    <translation>Falta el nombre de la aplicación</translation>
</message>
<message id="KajuLocale.kMissingReason">
    <source>Missing</source>
    <translation>Falta:</translation>
</message>
<message id="KajuLocale.kNoProgramMessage">
    <source>The update does not contain the program.</source>
    <translation>La actualización no contiene el programa.</translation>
</message>
<message id="KajuLocale.kNothingStartsMessage">
    <source>No program can be started from the temporary folder.</source>
    <translation>No se puede iniciar ningún programa desde la carpeta temporal.</translation>
</message>
<message id="KajuLocale.kNoUpdateInfoMessage">
    <source>NO UPDATE INFORMATION</source>
    <translation>NO HAY INFORMACIÓN SOBRE LA ACTUALIZACIÓN</translation>
</message>
<message id="KajuLocale.kNoMD5Message">
    <source>The file cannot be checked, since MD5 is switched off on this system.</source>
    <translation>No se puede comprobar el archivo porque MD5 está desactivado en este sistema.</translation>
</message>
<message id="KajuLocale.kPaymentRequiredMessage">
    <source>This update is not free and will require payment. Proceed anyway?</source>
    <translation>Esta actualización no es gratuita y requerirá un pago. ¿Desea continuar de todos modos?</translation>
</message>
<message id="KajuLocale.kProceedButton">
    <source>Proceed</source>
    <translation>Continuar</translation>
</message>
<message id="KajuLocale.kProcessingFileMessage">
    <source>Processing file...</source>
    <translation>Procesando el archivo…</translation>
</message>
<message id="KajuLocale.kProgressName">
    <source>Progress</source>
    <translation>Progreso</translation>
</message>
<message id="KajuLocale.kQuitButton">
    <source>Quit &amp;&amp; Install</source>
    <translation>Salir &amp;&amp; instalar</translation>
</message>
<message id="KajuLocale.kReadyMessage">
    <source>Ready to install</source>
    <translation>Todo listo para instalar</translation>
</message>
<message id="KajuLocale.kReleaseNotesLabel">
    <source>Release Notes:</source>
    <translation>Notas de la versión:</translation>
</message>
<message id="KajuLocale.kReleaseNotesName">
    <source>Release notes</source>
    <translation>Notas de la versión</translation>
</message>
<message id="KajuLocale.kRemindMeLaterButton">
    <source>Remind Me Later</source>
    <translation>Recordar más tarde</translation>
</message>
<message id="KajuLocale.kScriptNotWrittenMessage">
    <source>The install script cannot be written.</source>
    <translation>No se puede escribir el script de instalación.</translation>
</message>
<message id="KajuLocale.kSecondaryNoticeMultiple">
    <source>You have version &lt;&lt;ThisVersion&gt;&gt; and there are multiple updates available. Install one?</source>
    <translation>Tiene la versión &lt;&lt;ThisVersion&gt;&gt; y hay varias actualizaciones disponibles. ¿Desea instalar una?</translation>
</message>
<message id="KajuLocale.kSecondaryNoticeOne">
    <source>You have version &lt;&lt;ThisVersion&gt;&gt;. Would you like to install version &lt;&lt;NewVersion&gt;&gt;?</source>
    <translation>Tiene la versión &lt;&lt;ThisVersion&gt;&gt;. ¿Desea instalar la versión &lt;&lt;NewVersion&gt;&gt;?</translation>
</message>
<message id="KajuLocale.kSkipVersionButton">
    <source>Skip Version</source>
    <translation>Omitir versión</translation>
</message>
<message id="KajuLocale.kStopButton">
    <source>Stop</source>
    <translation>Detener</translation>
</message>
<message id="KajuLocale.kThisApplication">
    <source>this application</source>
    <translation>esta aplicación</translation>
</message>
<message id="KajuLocale.kTimedOutMessage">
    <source>The operation has timed out.</source>
    <translation>Se ha agotado el tiempo de espera de la operación.</translation>
</message>
<message id="KajuLocale.kTryAgainButton">
    <source>Try Again</source>
    <translation>Reintentar</translation>
</message>
<message id="KajuLocale.kTryLaterButton">
    <source>Try Later</source>
    <translation>Intentar más tarde</translation>
</message>
<message id="KajuLocale.kUpdateFailedExplanation">
    <source>This version goes on. The reason is in the system log, under “Kaju Update Script”.</source>
    <translation>Se sigue con esta versión. El motivo está en el registro del sistema, en «Kaju Update Script».</translation>
</message>
<message id="KajuLocale.kUpdateFailedMessage">
    <source>The update could not be installed.</source>
    <translation>No se ha podido instalar la actualización.</translation>
</message>
<message id="KajuLocale.kUpdateGoneMessage">
    <source>The unpacked update is no longer there.</source>
    <translation>La actualización descomprimida ya no está.</translation>
</message>
<message id="KajuLocale.kUse32bitLabel">
    <source>Stay With 32-bit</source>
    <translation>Seguir con 32 bits</translation>
</message>
<message id="KajuLocale.kUse64bitLabel">
    <source>Switch To 64-bit</source>
    <translation>Cambiar a 64 bits</translation>
</message>
<message id="KajuLocale.kVersionMustBeInFormReason">
    <source>Version must be in one of these forms</source>
    <translation>La versión debe tener una de estas formas</translation>
</message>
<message id="KajuLocale.kVersionsLabel">
    <source>Available Versions:</source>
    <translation>Versiones:</translation>
</message>
<message id="KajuLocale.kVersionsName">
    <source>Available versions</source>
    <translation>Versiones disponibles</translation>
</message>
<message id="KajuLocale.kWindowTitle">
    <source>Update Available</source>
    <translation>Actualización disponible</translation>
</message>
<message id="KajuException.kErrorCantFindLibsFolder">
    <source>Can’t locate this applications Libs folder.</source>
    <translation>No se encuentra la carpeta «Libs» de esta aplicación.</translation>
</message>
<message id="KajuException.kErrorImproperFunction">
    <source>This function cannot be used on this platform.</source>
    <translation>Esta función no se puede usar en esta plataforma.</translation>
</message>
<message id="KajuException.kErrorMissingUpdateURL">
    <source>The update URL is missing.</source>
    <translation>Falta la dirección de las actualizaciones.</translation>
</message>
<message id="DesktopTexts.kCancelButton">
    <source>Cancel</source>
    <translation>Cancelar</translation>
</message>
<message id="DesktopTexts.kCautionSign">
    <source>Caution</source>
    <translation>Atención</translation>
</message>
<message id="DesktopTexts.kCopyCommand">
    <source>Copy</source>
    <translation>Copiar</translation>
</message>
<message id="DesktopTexts.kCopyLinkCommand">
    <source>Copy Link Address</source>
    <translation>Copiar la dirección del enlace</translation>
</message>
<message id="DesktopTexts.kNoBrowserMessage">
    <source>This desktop has no browser to open the address with:</source>
    <translation>Este escritorio no tiene ningún navegador para abrir la dirección:</translation>
</message>
<message id="DesktopTexts.kNoButton">
    <source>No</source>
    <translation>No</translation>
</message>
<message id="DesktopTexts.kNoTemporaryFileMessage">
    <source>No temporary file can be made at &lt;&lt;Path&gt;&gt;: &lt;&lt;Reason&gt;&gt;.</source>
    <translation>No se puede crear ningún archivo temporal en &lt;&lt;Path&gt;&gt;: &lt;&lt;Reason&gt;&gt;.</translation>
</message>
<message id="DesktopTexts.kNoTemporaryFolderMessage">
    <source>No temporary folder can be made at &lt;&lt;Path&gt;&gt;: &lt;&lt;Reason&gt;&gt;.</source>
    <translation>No se puede crear ninguna carpeta temporal en &lt;&lt;Path&gt;&gt;: &lt;&lt;Reason&gt;&gt;.</translation>
</message>
<message id="DesktopTexts.kOKButton">
    <source>OK</source>
    <translation>Aceptar</translation>
</message>
<message id="DesktopTexts.kPageIsCutNotice">
    <source>The rest of this page is not shown.</source>
    <translation>El resto de esta página no se muestra.</translation>
</message>
<message id="DesktopTexts.kSelectAllCommand">
    <source>Select All</source>
    <translation>Seleccionar todo</translation>
</message>
<message id="DesktopTexts.kTextIsCutNotice">
    <source>&lt;&lt;Count&gt;&gt; more characters are not shown</source>
    <translation>&lt;&lt;Count&gt;&gt; caracteres más no se muestran</translation>
</message>
</context>
</TS>
