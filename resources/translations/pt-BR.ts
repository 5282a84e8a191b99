<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="pt_BR" sourcelanguage="en">
<context>
<name></name>
<message id="KajuLocale.kBadDownloadMessage">
    <source>The downloaded file appears to be corrupted.</source>
    <translation>O arquivo baixado parece estar corrompido.</translation>
</message>
<message id="KajuLocale.kBinaryInfoInvalidReason">
    <source>Binary information is not valid</source>
    <translation>informações do binário inválidas</translation>
</message>
<message id="KajuLocale.kCancelButton">
    <source>&amp;Cancel</source>
    <translation>&amp;Cancelar</translation>
</message>
<message id="KajuLocale.kCannotSkipVersionsMessage">
    <source>You cannot skip versions until you have updated to version &lt;&lt;Version&gt;&gt; or beyond.</source>
    <translation>Você não pode pular versões antes de atualizar para a versão &lt;&lt;Version&gt;&gt; ou posterior.</translation>
</message>
<message id="KajuLocale.kChoose64bitMessage">
    <source>The update is only available as 64-bit. Proceed?</source>
    <translation>A atualização só está disponível em 64 bits. Deseja continuar?</translation>
</message>
<message id="KajuLocale.kChooseBetweenBitsMessage">
    <source>This update is also available as 64-bit. Which would you prefer?</source>
    <translation>Esta atualização também está disponível em 64 bits. Qual você prefere?</translation>
</message>
<message id="KajuLocale.kCurrenlyUsing32bitMessage">
    <source>You are currently using the 32-bit version.</source>
    <translation>No momento, você usa a versão de 32 bits.</translation>
</message>
<message id="KajuLocale.kDiskFullMessage">
    <source>The disk is full.</source>
    <translation>O disco está cheio.</translation>
</message>
<message id="KajuLocale.kDownloadingMessage">
    <source>Downloading...</source>
    <translation>Baixando…</translation>
</message>
<message id="KajuLocale.kDryRunMessage">
    <source>(Dry run, not really installing)</source>
    <translation>(Simulação: nada será instalado)</translation>
</message>
<message id="KajuLocale.kErrorBadUpdateData">
    <source>The update data cannot be read.</source>
    <translation>Não é possível ler os dados da atualização.</translation>
</message>
<message id="KajuLocale.kErrorIncorrectPacketMarker">
    <source>The update packet signature marker was incorrect.</source>
    <translation>O marcador de assinatura do pacote de atualização está incorreto.</translation>
</message>
<message id="KajuLocale.kErrorIncorrectPacketSignature">
    <source>The RSA signature of the update packet cannot be verified.</source>
    <translation>Não é possível verificar a assinatura RSA do pacote de atualização.</translation>
</message>
<message id="KajuLocale.kErrorNoUpdateData">
    <source>No update data was available.</source>
    <translation>Não há dados de atualização disponíveis.</translation>
</message>
<message id="KajuLocale.kErrorOccurredMessage">
    <source>An error has occurred. Would you like to try again now or later?</source>
    <translation>Ocorreu um erro. Deseja tentar novamente agora ou mais tarde?</translation>
</message>
<message id="KajuLocale.kExplain64bitMessage">
    <source>Your system may not be able to run the 64-bit version. If you’re not sure, do not select it.</source>
    <translation>Talvez o seu sistema não consiga executar a versão de 64 bits. Se não tiver certeza, não a selecione.</translation>
</message>
<message id="KajuLocale.kGenericErrorMessage">
    <source>An error has occurred.</source>
    <translation>Ocorreu um erro.</translation>
</message>
<message id="KajuLocale.kInstallButton">
    <source>Install Update</source>
    <translation>Instalar atualização</translation>
</message>
<message id="KajuLocale.kLaterButton">
    <source>Later</source>
    <translation>Mais tarde</translation>
</message>
<message id="KajuLocale.kMainNotice">
    <source>A new version of &lt;&lt;AppName&gt;&gt; is available!</source>
    <translation>Há uma nova versão disponível para &lt;&lt;AppName&gt;&gt;!</translation>
</message>
<message id="KajuLocale.kMissingAppNameReason">
    <source>Missing app name</source>
    <translation>Falta o nome do aplicativo</translation>
</message>
<message id="KajuLocale.kMissingReason">
    <source>Missing</source>
    <translation>Falta:</translation>
</message>
<message id="KajuLocale.kNoProgramMessage">
    <source>The update does not contain the program.</source>
    <translation>A atualização não contém o programa.</translation>
</message>
<message id="KajuLocale.kNothingStartsMessage">
    <source>No program can be started from the temporary folder.</source>
    <translation>Nenhum programa pode ser iniciado a partir da pasta temporária.</translation>
</message>
<message id="KajuLocale.kNoUpdateInfoMessage">
    <source>NO UPDATE INFORMATION</source>
    <translation>NÃO HÁ INFORMAÇÕES SOBRE A ATUALIZAÇÃO</translation>
</message>
<message id="KajuLocale.kNoMD5Message">
    <source>The file cannot be checked, since MD5 is switched off on this system.</source>
    <translation>O arquivo não pode ser verificado porque o MD5 está desativado neste sistema.</translation>
</message>
<message id="KajuLocale.kPaymentRequiredMessage">
    <source>This update is not free and will require payment. Proceed anyway?</source>
    <translation>Esta atualização não é gratuita e exigirá pagamento. Deseja continuar mesmo assim?</translation>
</message>
<message id="KajuLocale.kProceedButton">
    <source>Proceed</source>
    <translation>Continuar</translation>
</message>
<message id="KajuLocale.kProcessingFileMessage">
    <source>Processing file...</source>
    <translation>Processando o arquivo…</translation>
</message>
<message id="KajuLocale.kProgressName">
    <source>Progress</source>
    <translation>Progresso</translation>
</message>
<message id="KajuLocale.kQuitButton">
    <source>Quit &amp;&amp; Install</source>
    <translation>Sair &amp;&amp; instalar</translation>
</message>
<message id="KajuLocale.kReadyMessage">
    <source>Ready to install</source>
    <translation>Pronto para instalar</translation>
</message>
<message id="KajuLocale.kReleaseNotesLabel">
    <source>Release Notes:</source>
    <translation>Notas da versão:</translation>
</message>
<message id="KajuLocale.kReleaseNotesName">
    <source>Release notes</source>
    <translation>Notas da versão</translation>
</message>
<message id="KajuLocale.kRemindMeLaterButton">
    <source>Remind Me Later</source>
    <translation>Lembrar mais tarde</translation>
</message>
<message id="KajuLocale.kScriptNotWrittenMessage">
    <source>The install script cannot be written.</source>
    <translation>Não é possível gravar o script de instalação.</translation>
</message>
<message id="KajuLocale.kSecondaryNoticeMultiple">
    <source>You have version &lt;&lt;ThisVersion&gt;&gt; and there are multiple updates available. Install one?</source>
    <translation>Você tem a versão &lt;&lt;ThisVersion&gt;&gt; e há várias atualizações disponíveis. Deseja instalar uma delas?</translation>
</message>
<message id="KajuLocale.kSecondaryNoticeOne">
    <source>You have version &lt;&lt;ThisVersion&gt;&gt;. Would you like to install version &lt;&lt;NewVersion&gt;&gt;?</source>
    <translation>Você tem a versão &lt;&lt;ThisVersion&gt;&gt;. Deseja instalar a versão &lt;&lt;NewVersion&gt;&gt;?</translation>
</message>
<message id="KajuLocale.kSkipVersionButton">
    <source>Skip Version</source>
    <translation>Pular versão</translation>
</message>
<message id="KajuLocale.kStopButton">
    <source>Stop</source>
    <translation>Parar</translation>
</message>
<message id="KajuLocale.kThisApplication">
    <source>this application</source>
    <translation>este aplicativo</translation>
</message>
<message id="KajuLocale.kTimedOutMessage">
    <source>The operation has timed out.</source>
    <translation>O tempo limite da operação foi excedido.</translation>
</message>
<message id="KajuLocale.kTryAgainButton">
    <source>Try Again</source>
    <translation>Tentar novamente</translation>
</message>
<message id="KajuLocale.kTryLaterButton">
    <source>Try Later</source>
    <translation>Tentar mais tarde</translation>
</message>
<message id="KajuLocale.kUpdateFailedExplanation">
    <source>This version goes on. The reason is in the system log, under “Kaju Update Script”.</source>
    <translation>Esta versão continua em uso. O motivo está no log do sistema, em “Kaju Update Script”.</translation>
</message>
<message id="KajuLocale.kUpdateFailedMessage">
    <source>The update could not be installed.</source>
    <translation>Não foi possível instalar a atualização.</translation>
</message>
<message id="KajuLocale.kUpdateGoneMessage">
    <source>The unpacked update is no longer there.</source>
    <translation>A atualização descompactada não está mais lá.</translation>
</message>
<message id="KajuLocale.kUse32bitLabel">
    <source>Stay With 32-bit</source>
    <translation>Continuar com 32 bits</translation>
</message>
<message id="KajuLocale.kUse64bitLabel">
    <source>Switch To 64-bit</source>
    <translation>Mudar para 64 bits</translation>
</message>
<message id="KajuLocale.kVersionMustBeInFormReason">
    <source>Version must be in one of these forms</source>
    <translation>A versão precisa ter uma destas formas</translation>
</message>
<message id="KajuLocale.kVersionsLabel">
    <source>Available Versions:</source>
    <translation>Versões:</translation>
</message>
<message id="KajuLocale.kVersionsName">
    <source>Available versions</source>
    <translation>Versões disponíveis</translation>
</message>
<message id="KajuLocale.kWindowTitle">
    <source>Update Available</source>
    <translation>Atualização disponível</translation>
</message>
<message id="KajuException.kErrorCantFindLibsFolder">
    <source>Can’t locate this applications Libs folder.</source>
    <translation>Não foi possível localizar a pasta Libs deste aplicativo.</translation>
</message>
<message id="KajuException.kErrorImproperFunction">
    <source>This function cannot be used on this platform.</source>
    <translation>Esta função não pode ser usada nesta plataforma.</translation>
</message>
<message id="KajuException.kErrorMissingUpdateURL">
    <source>The update URL is missing.</source>
    <translation>Falta o endereço das atualizações.</translation>
</message>
<message id="DesktopTexts.kCancelButton">
    <source>Cancel</source>
    <translation>Cancelar</translation>
</message>
<message id="DesktopTexts.kCautionSign">
    <source>Caution</source>
    <translation>Atenção</translation>
</message>
<message id="DesktopTexts.kCopyCommand">
    <source>Copy</source>
    <translation>Copiar</translation>
</message>
<message id="DesktopTexts.kCopyLinkCommand">
    <source>Copy Link Address</source>
    <translation>Copiar endereço do link</translation>
</message>
<message id="DesktopTexts.kNoBrowserMessage">
    <source>This desktop has no browser to open the address with:</source>
    <translation>Este ambiente não tem um navegador para abrir o endereço:</translation>
</message>
<message id="DesktopTexts.kNoButton">
    <source>No</source>
    <translation>Não</translation>
</message>
<message id="DesktopTexts.kNoTemporaryFileMessage">
    <source>No temporary file can be made at &lt;&lt;Path&gt;&gt;: &lt;&lt;Reason&gt;&gt;.</source>
    <translation>Não é possível criar um arquivo temporário em &lt;&lt;Path&gt;&gt;: &lt;&lt;Reason&gt;&gt;.</translation>
</message>
<message id="DesktopTexts.kNoTemporaryFolderMessage">
    <source>No temporary folder can be made at &lt;&lt;Path&gt;&gt;: &lt;&lt;Reason&gt;&gt;.</source>
    <translation>Não é possível criar uma pasta temporária em &lt;&lt;Path&gt;&gt;: &lt;&lt;Reason&gt;&gt;.</translation>
</message>
<message id="DesktopTexts.kOKButton">
    <source>OK</source>
    <translation>OK</translation>
</message>
<message id="DesktopTexts.kPageIsCutNotice">
    <source>The rest of this page is not shown.</source>
    <translation>O restante desta página não é exibido.</translation>
</message>
<message id="DesktopTexts.kSelectAllCommand">
    <source>Select All</source>
    <translation>Selecionar tudo</translation>
</message>
<message id="DesktopTexts.kTextIsCutNotice">
    <source>&lt;&lt;Count&gt;&gt; more characters are not shown</source>
    <translation>Mais &lt;&lt;Count&gt;&gt; caracteres não são exibidos</translation>
</message>
</context>
</TS>
