<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ja" sourcelanguage="en">
<context>
<name></name>
<message id="KajuLocale.kBadDownloadMessage">
    <source>The downloaded file appears to be corrupted.</source>
    <translation>ダウンロードしたファイルが破損しているようです。</translation>
</message>
<message id="KajuLocale.kBinaryInfoInvalidReason">
    <source>Binary information is not valid</source>
    <translation>バイナリ情報が正しくありません</translation>
</message>
<message id="KajuLocale.kCancelButton">
    <source>&amp;Cancel</source>
    <translation>キャンセル(&amp;C)</translation>
</message>
<message id="KajuLocale.kCannotSkipVersionsMessage">
    <source>You cannot skip versions until you have updated to version &lt;&lt;Version&gt;&gt; or beyond.</source>
    <translation>バージョン &lt;&lt;Version&gt;&gt; 以降に更新するまで、バージョンをスキップすることはできません。</translation>
</message>
<message id="KajuLocale.kChoose64bitMessage">
    <source>The update is only available as 64-bit. Proceed?</source>
    <translation>このアップデートは 64 ビット版のみです。続行しますか？</translation>
</message>
<message id="KajuLocale.kChooseBetweenBitsMessage">
    <source>This update is also available as 64-bit. Which would you prefer?</source>
    <translation>このアップデートには 64 ビット版もあります。どちらにしますか？</translation>
</message>
<message id="KajuLocale.kCurrenlyUsing32bitMessage">
    <source>You are currently using the 32-bit version.</source>
    <translation>現在お使いのものは 32 ビット版です。</translation>
</message>
<message id="KajuLocale.kDiskFullMessage">
    <source>The disk is full.</source>
    <translation>ディスクの空き容量がありません。</translation>
</message>
<message id="KajuLocale.kDownloadingMessage">
    <source>Downloading...</source>
    <translation>ダウンロードしています…</translation>
</message>
<message id="KajuLocale.kDryRunMessage">
    <source>(Dry run, not really installing)</source>
    <translation>（予行のため、実際にはインストールしません）</translation>
</message>
<message id="KajuLocale.kErrorBadUpdateData">
    <source>The update data cannot be read.</source>
    <translation>アップデートのデータを読み取れません。</translation>
</message>
<message id="KajuLocale.kErrorIncorrectPacketMarker">
    <source>The update packet signature marker was incorrect.</source>
    <translation>アップデートパケットの署名マーカーが正しくありません。</translation>
</message>
<message id="KajuLocale.kErrorIncorrectPacketSignature">
    <source>The RSA signature of the update packet cannot be verified.</source>
    <translation>アップデートパケットの RSA 署名を検証できません。</translation>
</message>
<message id="KajuLocale.kErrorNoUpdateData">
    <source>No update data was available.</source>
    <translation>アップデートのデータがありませんでした。</translation>
</message>
<message id="KajuLocale.kErrorOccurredMessage">
    <source>An error has occurred. Would you like to try again now or later?</source>
    <translation>エラーが発生しました。今すぐ再試行しますか、それとも後で再試行しますか？</translation>
</message>
<message id="KajuLocale.kExplain64bitMessage">
    <source>Your system may not be able to run the 64-bit version. If you’re not sure, do not select it.</source>
    <translation>お使いのシステムでは 64 ビット版を実行できない可能性があります。よくわからない場合は選択しないでください。</translation>
</message>
<message id="KajuLocale.kGenericErrorMessage">
    <source>An error has occurred.</source>
    <translation>エラーが発生しました。</translation>
</message>
<message id="KajuLocale.kInstallButton">
    <source>Install Update</source>
    <translation>アップデートをインストール</translation>
</message>
<message id="KajuLocale.kLaterButton">
    <source>Later</source>
    <translation>後で</translation>
</message>
<message id="KajuLocale.kMainNotice">
    <source>A new version of &lt;&lt;AppName&gt;&gt; is available!</source>
    <translation>&lt;&lt;AppName&gt;&gt; の新しいバージョンがあります。</translation>
</message>
<message id="KajuLocale.kMissingAppNameReason">
    <source>Missing app name</source>
    <translation>アプリケーション名がありません</translation>
</message>
<message id="KajuLocale.kMissingReason">
    <source>Missing</source>
    <translation>不足している項目:</translation>
</message>
<message id="KajuLocale.kNoProgramMessage">
    <source>The update does not contain the program.</source>
    <translation>アップデートにプログラムが含まれていません。</translation>
</message>
<message id="KajuLocale.kNothingStartsMessage">
    <source>No program can be started from the temporary folder.</source>
    <translation>一時フォルダからプログラムを起動できません。</translation>
</message>
<message id="KajuLocale.kNoUpdateInfoMessage">
    <source>NO UPDATE INFORMATION</source>
    <translation>アップデート情報がありません</translation>
</message>
<message id="KajuLocale.kNoMD5Message">
    <source>The file cannot be checked, since MD5 is switched off on this system.</source>
    <translation>このシステムでは MD5 が無効になっているため、ファイルを検証できません。</translation>
</message>
<message id="KajuLocale.kPaymentRequiredMessage">
    <source>This update is not free and will require payment. Proceed anyway?</source>
    <translation>このアップデートは有料で、お支払いが必要です。続行しますか？</translation>
</message>
<message id="KajuLocale.kProceedButton">
    <source>Proceed</source>
    <translation>続行</translation>
</message>
<message id="KajuLocale.kProcessingFileMessage">
    <source>Processing file...</source>
    <translation>ファイルを処理しています…</translation>
</message>
<message id="KajuLocale.kProgressName">
    <source>Progress</source>
    <translation>進行状況</translation>
</message>
<message id="KajuLocale.kQuitButton">
    <source>Quit &amp;&amp; Install</source>
    <translation>終了 &amp;&amp; インストール</translation>
</message>
<message id="KajuLocale.kReadyMessage">
    <source>Ready to install</source>
    <translation>インストールの準備ができました</translation>
</message>
<message id="KajuLocale.kReleaseNotesLabel">
    <source>Release Notes:</source>
    <translation>リリースノート:</translation>
</message>
<message id="KajuLocale.kReleaseNotesName">
    <source>Release notes</source>
    <translation>リリースノート</translation>
</message>
<message id="KajuLocale.kRemindMeLaterButton">
    <source>Remind Me Later</source>
    <translation>後で通知</translation>
</message>
<message id="KajuLocale.kScriptNotWrittenMessage">
    <source>The install script cannot be written.</source>
    <translation>インストールスクリプトを書き込めません。</translation>
</message>
<message id="KajuLocale.kSecondaryNoticeMultiple">
    <source>You have version &lt;&lt;ThisVersion&gt;&gt; and there are multiple updates available. Install one?</source>
    <translation>お使いのバージョンは &lt;&lt;ThisVersion&gt;&gt; です。複数のアップデートがあります。いずれかをインストールしますか？</translation>
</message>
<message id="KajuLocale.kSecondaryNoticeOne">
    <source>You have version &lt;&lt;ThisVersion&gt;&gt;. Would you like to install version &lt;&lt;NewVersion&gt;&gt;?</source>
    <translation>お使いのバージョンは &lt;&lt;ThisVersion&gt;&gt; です。バージョン &lt;&lt;NewVersion&gt;&gt; をインストールしますか？</translation>
</message>
<message id="KajuLocale.kSkipVersionButton">
    <source>Skip Version</source>
    <translation>このバージョンをスキップ</translation>
</message>
<message id="KajuLocale.kStopButton">
    <source>Stop</source>
    <translation>停止</translation>
</message>
<message id="KajuLocale.kThisApplication">
    <source>this application</source>
    <translation>このアプリケーション</translation>
</message>
<message id="KajuLocale.kTimedOutMessage">
    <source>The operation has timed out.</source>
    <translation>操作がタイムアウトしました。</translation>
</message>
<message id="KajuLocale.kTryAgainButton">
    <source>Try Again</source>
    <translation>再試行</translation>
</message>
<message id="KajuLocale.kTryLaterButton">
    <source>Try Later</source>
    <translation>後で再試行</translation>
</message>
<message id="KajuLocale.kUpdateFailedExplanation">
    <source>This version goes on. The reason is in the system log, under “Kaju Update Script”.</source>
    <translation>引き続きこのバージョンを使用します。理由はシステムログの「Kaju Update Script」に記録されています。</translation>
</message>
<message id="KajuLocale.kUpdateFailedMessage">
    <source>The update could not be installed.</source>
    <translation>アップデートをインストールできませんでした。</translation>
</message>
<message id="KajuLocale.kUpdateGoneMessage">
    <source>The unpacked update is no longer there.</source>
    <translation>展開されたアップデートが見つかりません。</translation>
</message>
<message id="KajuLocale.kUse32bitLabel">
    <source>Stay With 32-bit</source>
    <translation>32 ビット版のまま</translation>
</message>
<message id="KajuLocale.kUse64bitLabel">
    <source>Switch To 64-bit</source>
    <translation>64 ビット版に切り替え</translation>
</message>
<message id="KajuLocale.kVersionMustBeInFormReason">
    <source>Version must be in one of these forms</source>
    <translation>バージョンは次のいずれかの形式でなければなりません</translation>
</message>
<message id="KajuLocale.kVersionsLabel">
    <source>Available Versions:</source>
    <translation>利用可能なバージョン:</translation>
</message>
<message id="KajuLocale.kVersionsName">
    <source>Available versions</source>
    <translation>利用可能なバージョン</translation>
</message>
<message id="KajuLocale.kWindowTitle">
    <source>Update Available</source>
    <translation>アップデートがあります</translation>
</message>
<message id="KajuException.kErrorCantFindLibsFolder">
    <source>Can’t locate this applications Libs folder.</source>
    <translation>このアプリケーションの Libs フォルダーが見つかりません。</translation>
</message>
<message id="KajuException.kErrorImproperFunction">
    <source>This function cannot be used on this platform.</source>
    <translation>この機能は、このプラットフォームでは使用できません。</translation>
</message>
<message id="KajuException.kErrorMissingUpdateURL">
    <source>The update URL is missing.</source>
    <translation>アップデートの URL がありません。</translation>
</message>
<message id="DesktopTexts.kCancelButton">
    <source>Cancel</source>
    <translation>キャンセル</translation>
</message>
<message id="DesktopTexts.kCautionSign">
    <source>Caution</source>
    <translation>注意</translation>
</message>
<message id="DesktopTexts.kCopyCommand">
    <source>Copy</source>
    <translation>コピー</translation>
</message>
<message id="DesktopTexts.kCopyLinkCommand">
    <source>Copy Link Address</source>
    <translation>リンクのアドレスをコピー</translation>
</message>
<message id="DesktopTexts.kNoBrowserMessage">
    <source>This desktop has no browser to open the address with:</source>
    <translation>このデスクトップには、次のアドレスを開くブラウザがありません：</translation>
</message>
<message id="DesktopTexts.kNoButton">
    <source>No</source>
    <translation>いいえ</translation>
</message>
<message id="DesktopTexts.kNoTemporaryFileMessage">
    <source>No temporary file can be made at &lt;&lt;Path&gt;&gt;: &lt;&lt;Reason&gt;&gt;.</source>
    <translation>&lt;&lt;Path&gt;&gt; に一時ファイルを作成できません：&lt;&lt;Reason&gt;&gt;。</translation>
</message>
<message id="DesktopTexts.kNoTemporaryFolderMessage">
    <source>No temporary folder can be made at &lt;&lt;Path&gt;&gt;: &lt;&lt;Reason&gt;&gt;.</source>
    <translation>&lt;&lt;Path&gt;&gt; に一時フォルダを作成できません：&lt;&lt;Reason&gt;&gt;。</translation>
</message>
<message id="DesktopTexts.kOKButton">
    <source>OK</source>
    <translation>OK</translation>
</message>
<message id="DesktopTexts.kPageIsCutNotice">
    <source>The rest of this page is not shown.</source>
    <translation>このページの残りは表示されません。</translation>
</message>
<message id="DesktopTexts.kSelectAllCommand">
    <source>Select All</source>
    <translation>すべて選択</translation>
</message>
<message id="DesktopTexts.kTextIsCutNotice">
    <source>&lt;&lt;Count&gt;&gt; more characters are not shown</source>
    <translation>ほか &lt;&lt;Count&gt;&gt; 文字は表示されません</translation>
</message>
</context>
</TS>
