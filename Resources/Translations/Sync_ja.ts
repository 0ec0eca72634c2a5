<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ja_JP" sourcelanguage="en_US">
<context>
    <name>Sync</name>
    <message>
        <source>Other computers do not find this one by themselves, because the service “Avahi” is not running on this computer. Start it, or enter this address and port on the other computer under “Add”, “Direct Connection…”.</source>
        <translation>このコンピューターで「Avahi」サービスが実行されていないため、ほかのコンピューターはこのコンピューターを自動では検出できません。サービスを開始するか、相手のコンピューターの「追加」、「直接接続…」でこのアドレスとポートを入力してください。</translation>
    </message>
    <message>
        <source>“%1” was not revoked and may still connect. %2 Start the password service, and revoke it again.</source>
        <translation>「%1」は取り消されておらず、まだ接続できます。%2パスワードサービスを開始して、もう一度取り消してください。</translation>
    </message>
    <message>
        <source>Your changes to the sync locations could not be saved, and the reason is not known. Check the space on the disk, and try again.</source>
        <translation>同期先の変更を保存できませんでした。理由は不明です。ディスクの空き容量を確認して、もう一度お試しください。</translation>
    </message>
    <message>
        <source>The computers that may connect cannot be listed. %1 Start or unlock the password service, and open this window again.</source>
        <translation>接続できるコンピューターを一覧に表示できません。%1パスワードサービスを開始するかロックを解除して、このウインドウを開き直してください。</translation>
    </message>
    <message>
        <source>Computers cannot be found, because the service “Avahi” is not running on this computer. Start it, or enter the address of the other computer.</source>
        <translation>このコンピューターで「Avahi」サービスが実行されていないため、コンピューターを検出できません。サービスを開始するか、相手のコンピューターのアドレスを入力してください。</translation>
    </message>
    <message>
        <source>“%1” is not a valid host. Enter a name, such as “computer.local”, or an IP address.</source>
        <translation>「%1」は有効なホストではありません。「computer.local」のような名前またはIPアドレスを入力してください。</translation>
    </message>
    <message>
        <source>Enter a server and a store name.</source>
        <translation>サーバーとストア名を入力してください。</translation>
    </message>
    <message>
        <source>“%1” is not a valid server name. Enter a name such as “dav.example.org”.</source>
        <translation>「%1」は有効なサーバー名ではありません。「dav.example.org」のような名前を入力してください。</translation>
    </message>
    <message>
        <source>A server name contains no blanks. Remove the blank from “%1”.</source>
        <translation>サーバー名に空白は使えません。「%1」から空白を取り除いてください。</translation>
    </message>
    <message>
        <source>A server name cannot contain “%1”.</source>
        <translation>サーバー名に「%1」は使えません。</translation>
    </message>
    <message>
        <source>Enter “%1” instead.</source>
        <translation>代わりに「%1」と入力してください。</translation>
    </message>
    <message>
        <source>The server field contains a complete address. Click “Fill In the Fields”.</source>
        <translation>サーバー欄に完全なアドレスが入力されています。「各欄に入力」をクリックしてください。</translation>
    </message>
    <message>
        <source>The port is a number from 1 to 65535. Correct it or leave it empty.</source>
        <translation>ポートは1から65535までの数です。修正するか、空欄にしてください。</translation>
    </message>
    <message>
        <source>The folder and the store name cannot contain “?”.</source>
        <translation>フォルダーとストア名に「?」は使えません。</translation>
    </message>
    <message>
        <source>Address: %1</source>
        <translation>アドレス: %1</translation>
    </message>
    <message>
        <source>Fill In the Fields</source>
        <translation>各欄に入力</translation>
    </message>
    <message>
        <source>Distribute the address in the server field over the fields</source>
        <translation>サーバー欄のアドレスを各欄に分けて入力します</translation>
    </message>
    <message>
        <source>“%1” does not return what was written to it. Check the server or the disk, or use another location.</source>
        <translation>「%1」から読み取った内容が、書き込んだ内容と違います。サーバーまたはディスクを確認するか、別の同期先を使ってください。</translation>
    </message>
    <message numerus="yes">
        <source>%1 databases</source>
        <translation>
            <numerusform>データベース%1件</numerusform>
        </translation>
    </message>
    <message>
        <source>“%1” can be read. %2.</source>
        <translation>「%1」を読み取れます。%2。</translation>
    </message>
    <message>
        <source>“%1” can be read and written. %2.</source>
        <translation>「%1」を読み書きできます。%2。</translation>
    </message>
    <message>
        <source>“%1” can be read and written. %2, %3.</source>
        <translation>「%1」を読み書きできます。%2、%3。</translation>
    </message>
    <message>
        <source>“%1” can be read, but not written. %2</source>
        <translation>「%1」を読み取れますが、書き込めません。%2</translation>
    </message>
    <message>
        <source>“%1” takes too long to respond. Check whether it is available, and try again.</source>
        <translation>「%1」の応答に時間がかかりすぎています。使用できる状態かどうかを確認して、もう一度お試しください。</translation>
    </message>
    <message>
        <source>Edit Location…</source>
        <translation>同期先を編集…</translation>
    </message>
    <message>
        <source>Try Again</source>
        <translation>再試行</translation>
    </message>
    <message>
        <source>Show Folder</source>
        <translation>フォルダーを表示</translation>
    </message>
    <message>
        <source>Show Log</source>
        <translation>ログを表示</translation>
    </message>
    <message>
        <source>%1 %2 of %3</source>
        <translation>%1 %2/%3</translation>
    </message>
    <message>
        <source>Progress of the synchronization</source>
        <translation>同期の進行状況</translation>
    </message>
    <message>
        <source>Stop</source>
        <translation>停止</translation>
    </message>
    <message>
        <source>Stop all synchronizations. The next one continues where they stopped.</source>
        <translation>すべての同期を停止します。次の同期は、停止したところから続きます。</translation>
    </message>
    <message>
        <source>damaged record</source>
        <translation>破損したレコード</translation>
    </message>
    <message>
        <source>invalid name or text</source>
        <translation>無効な名前または本文</translation>
    </message>
    <message>
        <source>a file is missing</source>
        <translation>ファイルがありません</translation>
    </message>
    <message>
        <source>a file cannot be used</source>
        <translation>使用できないファイルがあります</translation>
    </message>
    <message>
        <source>a newer version is needed</source>
        <translation>新しいバージョンが必要です</translation>
    </message>
    <message>
        <source>not shared by the server</source>
        <translation>サーバーが提供していません</translation>
    </message>
    <message>
        <source>wrong password</source>
        <translation>パスワードが違います</translation>
    </message>
    <message>
        <source>access denied</source>
        <translation>アクセスが拒否されました</translation>
    </message>
    <message>
        <source>read-only</source>
        <translation>読み取り専用</translation>
    </message>
    <message>
        <source>no space left</source>
        <translation>空き容量がありません</translation>
    </message>
    <message>
        <source>not available</source>
        <translation>使用できません</translation>
    </message>
    <message>
        <source>certificate not trusted</source>
        <translation>証明書を信頼できません</translation>
    </message>
    <message>
        <source>waiting for your decision</source>
        <translation>あなたの判断を待っています</translation>
    </message>
    <message>
        <source>the profile cannot be saved</source>
        <translation>プロファイルを保存できません</translation>
    </message>
    <message>
        <source>failed %1</source>
        <translation>%1に失敗</translation>
    </message>
    <message>
        <source>failed %1: %2</source>
        <translation>%1に失敗: %2</translation>
    </message>
    <message>
        <source>never synchronized</source>
        <translation>一度も同期されていません</translation>
    </message>
    <message>
        <source>synchronized %1</source>
        <translation>%1に同期</translation>
    </message>
    <message numerus="yes">
        <source>Synchronized with %1 of %2 locations · %3</source>
        <translation>
            <numerusform>同期先%2件中%1件と同期済み · %3</numerusform>
        </translation>
    </message>
    <message>
        <source>Synchronization failed</source>
        <translation>同期に失敗しました</translation>
    </message>
    <message>
        <source>Synchronization failed · last synchronized %1</source>
        <translation>同期に失敗しました · 前回の同期: %1</translation>
    </message>
    <message>
        <source>Not yet synchronized with the ticked locations</source>
        <translation>チェックの付いた同期先とまだ同期されていません</translation>
    </message>
    <message>
        <source>Tick a location first. A schedule belongs to the locations that are ticked.</source>
        <translation>先に同期先にチェックを付けてください。スケジュールは、チェックの付いた同期先に適用されます。</translation>
    </message>
    <message>
        <source>Choose at least one day. Otherwise nothing is synchronized.</source>
        <translation>1つ以上の曜日を選んでください。選ばないと、何も同期されません。</translation>
    </message>
    <message>
        <source>The last synchronization failed. Show what failed.</source>
        <translation>前回の同期に失敗しました。失敗の内容を表示します。</translation>
    </message>
    <message>
        <source>Show what failed with “%1”</source>
        <translation>「%1」で失敗した内容を表示します</translation>
    </message>
    <message>
        <source>Synchronizes “%1” with “%2”</source>
        <translation>「%1」を「%2」と同期します</translation>
    </message>
    <message>
        <source>Unavailable</source>
        <translation>使用できません</translation>
    </message>
    <message>
        <source>Dropbox</source>
        <translation>Dropbox</translation>
    </message>
    <message>
        <source>Local Sync Store</source>
        <translation>ローカル同期ストア</translation>
    </message>
    <message>
        <source>WebDAV</source>
        <translation>WebDAV</translation>
    </message>
    <message>
        <source>Dropbox Location</source>
        <translation>Dropboxの同期先</translation>
    </message>
    <message>
        <source>Sign In…</source>
        <translation>サインイン…</translation>
    </message>
    <message>
        <source>Reading the password…</source>
        <translation>パスワードを読み取っています…</translation>
    </message>
    <message>
        <source>%1 %2 To replace the password, enter it again.</source>
        <translation>%1 %2 パスワードを置き換えるには、もう一度入力してください。</translation>
    </message>
    <message>
        <source>Direct Connection</source>
        <translation>直接接続</translation>
    </message>
    <message>
        <source>Unknown Location</source>
        <translation>不明な同期先</translation>
    </message>
    <message>
        <source>No Address</source>
        <translation>アドレスなし</translation>
    </message>
    <message>
        <source>Sync Now</source>
        <translation>今すぐ同期</translation>
    </message>
    <message>
        <source>Not authorized</source>
        <translation>承認されていません</translation>
    </message>
    <message>
        <source>Authorizing…</source>
        <translation>承認を待っています…</translation>
    </message>
    <message>
        <source>Authorized</source>
        <translation>承認されました</translation>
    </message>
    <message>
        <source>Give Velmora access to any folder where indexed items may be kept.</source>
        <translation>索引の対象になる項目が置かれるフォルダーへのアクセスを、Velmoraに許可してください。</translation>
    </message>
    <message>
        <source>Success</source>
        <translation>成功</translation>
    </message>
    <message>
        <source>Parameter Error</source>
        <translation>パラメーターのエラー</translation>
    </message>
    <message>
        <source>Illegal parameter supplied to encryption/decryption algorithm</source>
        <translation>暗号化または復号のアルゴリズムに、不正なパラメーターが渡されました</translation>
    </message>
    <message>
        <source>Buffer Too Small</source>
        <translation>バッファーの不足</translation>
    </message>
    <message>
        <source>Insufficient buffer provided for specified operation</source>
        <translation>指定された操作に対してバッファーが小さすぎます</translation>
    </message>
    <message>
        <source>Memory Failure</source>
        <translation>メモリーの不足</translation>
    </message>
    <message>
        <source>Failed to allocate memory</source>
        <translation>メモリーを確保できませんでした</translation>
    </message>
    <message>
        <source>Alignment Error</source>
        <translation>アラインメントのエラー</translation>
    </message>
    <message>
        <source>Input size to encryption algorithm was not aligned correctly</source>
        <translation>暗号化アルゴリズムへの入力の長さが正しくありません</translation>
    </message>
    <message>
        <source>Decode Error</source>
        <translation>デコードのエラー</translation>
    </message>
    <message>
        <source>Input data did not decode or decrypt correctly</source>
        <translation>入力データを正しくデコードまたは復号できませんでした</translation>
    </message>
    <message>
        <source>Unimplemented Function</source>
        <translation>未実装の機能</translation>
    </message>
    <message>
        <source>Function not implemented for the current algorithm</source>
        <translation>この機能は現在のアルゴリズムでは実装されていません</translation>
    </message>
    <message>
        <source>Unknown Error</source>
        <translation>不明なエラー</translation>
    </message>
    <message>
        <source>Failed to fetch information for database (%@)</source>
        <translation>データベースの情報を取得できませんでした（%@）</translation>
    </message>
    <message>
        <source>The profile “%1” is damaged. Restore it from a backup or use another profile.</source>
        <translation>プロファイル「%1」は破損しています。バックアップから復元するか、別のプロファイルを使ってください。</translation>
    </message>
    <message>
        <source>An index of the profile “%1” is damaged, so that notes may seem to be missing. Quit Velmora if it is running, and start it: it rebuilds the index or offers to restore a backup.</source>
        <translation>プロファイル「%1」のインデックスが破損しているため、ノートがないように見えることがあります。Velmoraが動作している場合は終了し、もう一度起動してください。インデックスを作り直すか、バックアップからの復元を提案します。</translation>
    </message>
    <message>
        <source>The profile “%1” cannot be read, because its disk reports an error. Check the disk and its connection, then start Velmora again.</source>
        <translation>ディスクがエラーを報告しているため、プロファイル「%1」を読み込めません。ディスクとその接続を確認してから、Velmoraをもう一度起動してください。</translation>
    </message>
    <message>
        <source>The profile “%1” is damaged (%2). Quit Velmora and start it again: it then repairs the profile or offers to restore a backup.</source>
        <translation>プロファイル「%1」は破損しています（%2）。Velmoraを終了し、もう一度起動してください。プロファイルを修復するか、バックアップからの復元を提案します。</translation>
    </message>
    <message>
        <source>An index of the profile was damaged and was rebuilt. If this happens again, check the disk.</source>
        <translation>プロファイルのインデックスが破損していたため、作り直しました。再び起こる場合は、ディスクを確認してください。</translation>
    </message>
    <message>
        <source>The profile “%1” was created by a newer version of Velmora. Update Velmora to open it.</source>
        <translation>プロファイル「%1」は、新しいバージョンのVelmoraで作成されました。開くには、Velmoraを更新してください。</translation>
    </message>
    <message>
        <source>“%1” is a database of another program, not a profile. Choose another folder.</source>
        <translation>「%1」は別のプログラムのデータベースで、プロファイルではありません。別のフォルダーを選んでください。</translation>
    </message>
    <message>
        <source>“%1” is not a file, so it cannot be opened as a profile. Choose another folder.</source>
        <translation>「%1」はファイルではないため、プロファイルとして開けません。別のフォルダーを選んでください。</translation>
    </message>
    <message>
        <source>The profile “%1” is in use by another Velmora. Quit it and try again.</source>
        <translation>プロファイル「%1」は、別のVelmoraが使用中です。そのVelmoraを終了して、もう一度お試しください。</translation>
    </message>
    <message>
        <source>The profile folder “%1” cannot be locked: %2. Check its disk and its permissions, then try again.</source>
        <translation>プロファイルのフォルダー「%1」をロックできません: %2。ディスクとアクセス権を確認して、もう一度お試しください。</translation>
    </message>
    <message>
        <source>The profile “%1” cannot be copied: %2. Check the disk, then try again.</source>
        <translation>プロファイル「%1」をコピーできません: %2。ディスクを確認して、もう一度お試しください。</translation>
    </message>
    <message>
        <source>You do not have permission to read the profile “%1”. Change its permissions or use another profile.</source>
        <translation>プロファイル「%1」を読み取る権限がありません。アクセス権を変更するか、別のプロファイルを使ってください。</translation>
    </message>
    <message>
        <source>The profile “%1” is read-only. Change its permissions or use another profile.</source>
        <translation>プロファイル「%1」は読み取り専用です。アクセス権を変更するか、別のプロファイルを使ってください。</translation>
    </message>
    <message>
        <source>The profile folder “%1” is read-only. Change its permissions or use another profile.</source>
        <translation>プロファイルのフォルダー「%1」は読み取り専用です。アクセス権を変更するか、別のプロファイルを使ってください。</translation>
    </message>
    <message>
        <source>The profile folder “%1” could not be created. Check the permissions of the folder that contains it.</source>
        <translation>プロファイルのフォルダー「%1」を作成できませんでした。親フォルダーのアクセス権を確認してください。</translation>
    </message>
    <message>
        <source>“%1” is not a folder. Choose a folder for the profile.</source>
        <translation>「%1」はフォルダーではありません。プロファイルのフォルダーを選んでください。</translation>
    </message>
    <message>
        <source>The folder “%1” contains other files and no profile. Choose an empty folder.</source>
        <translation>フォルダー「%1」にはほかのファイルがあり、プロファイルがありません。空のフォルダーを選んでください。</translation>
    </message>
    <message>
        <source>%1 %2 Unlock the keyring and try again.</source>
        <translation>%1 %2 キーリングのロックを解除して、もう一度お試しください。</translation>
    </message>
    <message>
        <source>Profile:</source>
        <translation>プロファイル:</translation>
    </message>
    <message>
        <source>Other users of this computer may be able to read the profile “%1”, because its permissions cannot be changed. Move it to a folder of your own.</source>
        <translation>アクセス権を変更できないため、このコンピューターのほかのユーザーがプロファイル「%1」を読み取れる可能性があります。自分のフォルダーに移動してください。</translation>
    </message>
    <message>
        <source>The profile “%1” cannot be opened: %2. Check its disk and its permissions, then try again.</source>
        <translation>プロファイル「%1」を開けません: %2。ディスクとアクセス権を確認して、もう一度お試しください。</translation>
    </message>
    <message>
        <source>The profile “%1” cannot be read or written: %2. Check its disk and its permissions, then try again.</source>
        <translation>プロファイル「%1」を読み書きできません: %2。ディスクとアクセス権を確認して、もう一度お試しください。</translation>
    </message>
    <message>
        <source>The profile “%1” has no inbox. Restore it from a backup or use another profile.</source>
        <translation>プロファイル「%1」にインボックスがありません。バックアップから復元するか、別のプロファイルを使ってください。</translation>
    </message>
    <message>
        <source>The profile “%1” no longer exists. Quit Velmora and restore it from a backup.</source>
        <translation>プロファイル「%1」がなくなりました。Velmoraを終了して、バックアップから復元してください。</translation>
    </message>
    <message>
        <source>Enter a name for the database.</source>
        <translation>データベースの名前を入力してください。</translation>
    </message>
    <message>
        <source>The operation was cancelled.</source>
        <translation>操作はキャンセルされました。</translation>
    </message>
    <message>
        <source>The sync store is not open. Try again.</source>
        <translation>同期ストアが開かれていません。もう一度お試しください。</translation>
    </message>
    <message>
        <source>This location has no address. Remove it and add it again.</source>
        <translation>この同期先にはアドレスがありません。削除して、もう一度追加してください。</translation>
    </message>
    <message>
        <source>Velmora does not support locations of the kind “%1”. Remove this location and add another one.</source>
        <translation>Velmoraは「%1」という種類の同期先に対応していません。この同期先を削除して、別の同期先を追加してください。</translation>
    </message>
    <message>
        <source>“%1” is a folder on another computer. Choose a folder on this computer.</source>
        <translation>「%1」は別のコンピューターのフォルダーです。このコンピューターのフォルダーを選んでください。</translation>
    </message>
    <message>
        <source>The sync store “%1” does not exist. Check whether it was moved or renamed.</source>
        <translation>同期ストア「%1」がありません。移動または名前の変更がされていないかどうかを確認してください。</translation>
    </message>
    <message>
        <source>“%1” is not a sync store. Edit the location and choose another one.</source>
        <translation>「%1」は同期ストアではありません。同期先を編集して、別の同期ストアを選んでください。</translation>
    </message>
    <message>
        <source>Do Not Trust</source>
        <translation>信頼しない</translation>
    </message>
    <message>
        <source>Fingerprint (SHA-256): %1</source>
        <translation>フィンガープリント（SHA-256）: %1</translation>
    </message>
    <message>
        <source>Issued by: %1</source>
        <translation>発行者: %1</translation>
    </message>
    <message>
        <source>Issued to: %1</source>
        <translation>発行先: %1</translation>
    </message>
    <message>
        <source>A secure connection to the server “%1” could not be established (%2). Check its port, and whether it supports HTTPS.</source>
        <translation>サーバー「%1」との安全な接続を確立できませんでした（%2）。ポートと、サーバーがHTTPSに対応しているかどうかを確認してください。</translation>
    </message>
    <message>
        <source>“%1” is not a valid name in a sync store. Install the newest version of Velmora on all your computers.</source>
        <translation>「%1」は同期ストアで有効な名前ではありません。すべてのコンピューターにVelmoraの最新バージョンをインストールしてください。</translation>
    </message>
    <message>
        <source>The server “%1” sent an unexpected response (HTTP %2). Try again later or ask its administrator.</source>
        <translation>サーバー「%1」が予期しない応答を送信しました（HTTP %2）。後でもう一度試すか、サーバーの管理者に問い合わせてください。</translation>
    </message>
    <message>
        <source>The server “%1” sent an invalid response. Try again later or ask its administrator.</source>
        <translation>サーバー「%1」が無効な応答を送信しました。後でもう一度試すか、サーバーの管理者に問い合わせてください。</translation>
    </message>
    <message>
        <source>“%1” is missing from the response or is not valid.</source>
        <translation>応答に「%1」がないか、無効です。</translation>
    </message>
    <message>
        <source>The server “%1” sent a response that is too long. Ask its administrator.</source>
        <translation>サーバー「%1」が送信した応答が長すぎます。サーバーの管理者に問い合わせてください。</translation>
    </message>
    <message>
        <source>The certificate, or one with which it was issued, has a key or a signature that is too weak.</source>
        <translation>証明書、またはその発行に使われた証明書の鍵または署名が弱すぎます。</translation>
    </message>
    <message>
        <source>The certificate has expired.</source>
        <translation>証明書の有効期限が切れています。</translation>
    </message>
    <message>
        <source>The certificate is not valid yet.</source>
        <translation>証明書はまだ有効ではありません。</translation>
    </message>
    <message>
        <source>The certificate is self-signed.</source>
        <translation>証明書は自己署名です。</translation>
    </message>
    <message>
        <source>The certificate was issued for another server.</source>
        <translation>証明書は別のサーバーに対して発行されたものです。</translation>
    </message>
    <message>
        <source>The certificate was issued by an authority that this computer does not trust.</source>
        <translation>証明書は、このコンピューターが信頼していない認証局から発行されたものです。</translation>
    </message>
    <message>
        <source>The folder “%1” does not exist on the server. Create it there or edit the location.</source>
        <translation>フォルダー「%1」はサーバーにありません。サーバーでフォルダーを作成するか、同期先を編集してください。</translation>
    </message>
    <message>
        <source>The server does not allow you to use “%1”. Ask its administrator for access.</source>
        <translation>サーバーが「%1」の使用を許可していません。サーバーの管理者にアクセスを依頼してください。</translation>
    </message>
    <message>
        <source>The server “%1” requires a password, but none is saved for this location. Edit the location to enter it.</source>
        <translation>サーバー「%1」にはパスワードが必要ですが、この同期先には保存されていません。同期先を編集してパスワードを入力してください。</translation>
    </message>
    <message>
        <source>The server “%1” supports neither Basic nor Digest authentication with MD5 or SHA-256. Ask its administrator to allow one of them.</source>
        <translation>サーバー「%1」は、Basic認証にも、MD5またはSHA-256によるDigest認証にも対応していません。いずれかを許可するよう、サーバーの管理者に依頼してください。</translation>
    </message>
    <message>
        <source>The server “%1” closed the connection without a response. Check its name and port.</source>
        <translation>サーバー「%1」が応答せずに接続を閉じました。名前とポートを確認してください。</translation>
    </message>
    <message>
        <source>The server “%1” cannot be reached through the proxy “%2” (%3). Check the proxy in the network settings of the desktop.</source>
        <translation>プロキシ「%2」経由でサーバー「%1」に接続できません（%3）。デスクトップのネットワーク設定でプロキシを確認してください。</translation>
    </message>
    <message>
        <source>The server “%1” cannot be reached: %2. Check the network connection.</source>
        <translation>サーバー「%1」に接続できません: %2。ネットワーク接続を確認してください。</translation>
    </message>
    <message>
        <source>The server “%1” refused the connection. Check the port, and whether the server is running.</source>
        <translation>サーバー「%1」が接続を拒否しました。ポートと、サーバーが動作しているかどうかを確認してください。</translation>
    </message>
    <message>
        <source>The server “%1” cannot prove its identity. Trust its certificate for this location?</source>
        <translation>サーバー「%1」は身元を証明できません。この同期先では、サーバーの証明書を信頼しますか？</translation>
    </message>
    <message>
        <source>The server “%1” cannot prove its identity: %2 Check the address, or ask the administrator of the server about its certificate.</source>
        <translation>サーバー「%1」は身元を証明できません: %2 アドレスを確認するか、証明書についてサーバーの管理者に問い合わせてください。</translation>
    </message>
    <message>
        <source>The server “%1” does not accept this user name and password. Edit the location to correct them.</source>
        <translation>サーバー「%1」がこのユーザー名とパスワードを受け付けません。同期先を編集して修正してください。</translation>
    </message>
    <message>
        <source>The server “%1” does not respond. Check the network connection and try again.</source>
        <translation>サーバー「%1」が応答しません。ネットワーク接続を確認して、もう一度お試しください。</translation>
    </message>
    <message>
        <source>The server “%1” reported an internal error (HTTP %2). Try again later or ask its administrator.</source>
        <translation>サーバー「%1」で内部エラーが発生しました（HTTP %2）。後でもう一度試すか、サーバーの管理者に問い合わせてください。</translation>
    </message>
    <message>
        <source>The server “%1” is busy. Try again later.</source>
        <translation>サーバー「%1」は混み合っています。後でもう一度お試しください。</translation>
    </message>
    <message>
        <source>The server “%1” has no space left. Delete files there or ask its administrator.</source>
        <translation>サーバー「%1」に空き容量がありません。サーバーのファイルを削除するか、サーバーの管理者に問い合わせてください。</translation>
    </message>
    <message>
        <source>The server “%1” does not offer WebDAV at this address. Edit the location to correct it.</source>
        <translation>サーバー「%1」は、このアドレスでWebDAVを提供していません。同期先を編集してアドレスを修正してください。</translation>
    </message>
    <message>
        <source>The server “%1” redirects too often. Check the address of the location.</source>
        <translation>サーバー「%1」の転送回数が多すぎます。同期先のアドレスを確認してください。</translation>
    </message>
    <message>
        <source>The server “%1” redirects to “%2”. If that is correct, edit the location and enter it as the address.</source>
        <translation>サーバー「%1」が「%2」に転送しています。それが正しければ、同期先を編集して、それをアドレスとして入力してください。</translation>
    </message>
    <message>
        <source>The server “%1” takes too long to respond. Try again later.</source>
        <translation>サーバー「%1」の応答に時間がかかりすぎています。後でもう一度お試しください。</translation>
    </message>
    <message>
        <source>The sync store “%1” is read-only. Change its permissions or choose another one.</source>
        <translation>同期ストア「%1」は読み取り専用です。アクセス権を変更するか、別の同期ストアを選んでください。</translation>
    </message>
    <message>
        <source>The volume that contains the sync store “%1” is full. Free some space on it.</source>
        <translation>同期ストア「%1」があるディスクに空き容量がありません。空き容量を増やしてください。</translation>
    </message>
    <message>
        <source>The volume that contains the sync store “%1” is not mounted. Connect it and try again.</source>
        <translation>同期ストア「%1」があるディスクがマウントされていません。接続して、もう一度お試しください。</translation>
    </message>
    <message>
        <source>The server “%1” was not found. Check its name and the network connection.</source>
        <translation>サーバー「%1」が見つかりませんでした。名前とネットワーク接続を確認してください。</translation>
    </message>
    <message>
        <source>The address of the server “%1” could not be looked up. Check the network connection and try again.</source>
        <translation>サーバー「%1」のアドレスを調べられませんでした。ネットワーク接続を確認して、もう一度お試しください。</translation>
    </message>
    <message>
        <source>The address of the server “%1” was not looked up because too many look-ups are still running. Try again in a minute.</source>
        <translation>実行中の問い合わせが多すぎるため、サーバー「%1」のアドレスは調べられませんでした。1分後にもう一度お試しください。</translation>
    </message>
    <message>
        <source>Trust This Certificate</source>
        <translation>この証明書を信頼</translation>
    </message>
    <message>
        <source>Valid from %1 to %2</source>
        <translation>%1から%2まで有効</translation>
    </message>
    <message>
        <source>You do not have permission to use “%1”. Change its permissions or choose another sync store.</source>
        <translation>「%1」を使用する権限がありません。アクセス権を変更するか、別の同期ストアを選んでください。</translation>
    </message>
    <message>
        <source>“%1” cannot be read or written: %2. Check its disk and its permissions, then try again.</source>
        <translation>「%1」を読み書きできません: %2。ディスクとアクセス権を確認して、もう一度お試しください。</translation>
    </message>
    <message>
        <source>“%1” is larger than the server accepts. Ask its administrator to raise the limit.</source>
        <translation>「%1」は、サーバーが受け付ける大きさを超えています。上限を上げるよう、サーバーの管理者に依頼してください。</translation>
    </message>
    <message>
        <source>“%1” is locked on the server. Try again later.</source>
        <translation>「%1」はサーバーでロックされています。後でもう一度お試しください。</translation>
    </message>
    <message>
        <source>“%1” does not exist. Try again. If it is still missing, check the location.</source>
        <translation>「%1」はありません。もう一度お試しください。まだない場合は、同期先を確認してください。</translation>
    </message>
    <message>
        <source>“%1” isn’t a valid item in a sync store. Move it to another folder if it does not belong there.</source>
        <translation>「%1」は同期ストアで有効な項目ではありません。そこにあるべきでない場合は、別のフォルダーに移動してください。</translation>
    </message>
    <message>
        <source>“%1” is too large and was not read. Move it to another folder if it does not belong there.</source>
        <translation>「%1」は大きすぎるため、読み取られませんでした。そこにあるべきでない場合は、別のフォルダーに移動してください。</translation>
    </message>
    <message>
        <source>The sync store “%1” could not be created. Check the permissions of the folder that contains it.</source>
        <translation>同期ストア「%1」を作成できませんでした。親フォルダーのアクセス権を確認してください。</translation>
    </message>
    <message>
        <source>The record “%1” was not stored as it was written. Try again. If this happens repeatedly, use another location.</source>
        <translation>レコード「%1」は、書き込んだとおりに保存されませんでした。もう一度お試しください。繰り返し起こる場合は、別の同期先を使ってください。</translation>
    </message>
    <message>
        <source>The profile file “%1” was moved, deleted or replaced, so nothing can be saved. Put it back, or copy unsaved text elsewhere and restart Velmora.</source>
        <translation>プロファイルのファイル「%1」が移動、削除、または置き換えられたため、何も保存できません。ファイルを元に戻すか、保存されていない本文を別の場所にコピーして、Velmoraを起動し直してください。</translation>
    </message>
    <message>
        <source>The profile file “%1” cannot be reached, so nothing can be saved: %2. Check the permissions of its folder and its disk, or copy unsaved text elsewhere and restart Velmora.</source>
        <translation>プロファイルのファイル「%1」にアクセスできないため、何も保存できません: %2。フォルダーのアクセス権とディスクを確認するか、保存されていない本文を別の場所にコピーして、Velmoraを起動し直してください。</translation>
    </message>
    <message>
        <source>The record “%1” was damaged. It was moved to “%2”, and this computer writes its contents again.</source>
        <translation>レコード「%1」は破損していました。レコードは「%2」に移動され、このコンピューターが内容をもう一度書き込みます。</translation>
    </message>
    <message>
        <source>The record “%1” was damaged and was moved to “%2”. Synchronize on the computer that wrote it to restore its contents.</source>
        <translation>レコード「%1」は破損していたため、「%2」に移動されました。内容を復元するには、レコードを書き込んだコンピューターで同期してください。</translation>
    </message>
    <message>
        <source>A temporary folder cannot be created: %1. Check the permissions of “%2” and the space on its disk.</source>
        <translation>一時フォルダーを作成できません: %1。「%2」のアクセス権とディスクの空き容量を確認してください。</translation>
    </message>
    <message>
        <source>The folder “%1” cannot be read: %2. Databases that were added on other computers are not synchronized. Check its permissions and its disk.</source>
        <translation>フォルダー「%1」を読み取れません: %2。ほかのコンピューターで追加されたデータベースは同期されません。フォルダーのアクセス権とディスクを確認してください。</translation>
    </message>
    <message>
        <source>The damaged record “%1” cannot be copied, because the location does not store what is written. Check the disk or the server.</source>
        <translation>同期先が書き込んだものを保存しないため、破損したレコード「%1」をコピーできません。ディスクまたはサーバーを確認してください。</translation>
    </message>
    <message>
        <source>Everything was synchronized, but the records at “%1” could not be merged: %2</source>
        <translation>すべて同期されましたが、「%1」のレコードを統合できませんでした: %2</translation>
    </message>
    <message>
        <source>The record “%1” was read differently each time, so it was left as it is. Check the disk or the server.</source>
        <translation>レコード「%1」は読み取るたびに内容が違ったため、そのままにしました。ディスクまたはサーバーを確認してください。</translation>
    </message>
    <message>
        <source>Profile</source>
        <translation>プロファイル</translation>
    </message>
    <message>
        <source>The database of the profile is damaged (%1). Restore it from a backup.</source>
        <translation>プロファイルのデータベースが破損しています（%1）。バックアップから復元してください。</translation>
    </message>
    <message>
        <source>Damaged notes in the database “%1”: %2. “velmora verify --repair” reads them again from the locations. If no location has them, check their texts and edit them.</source>
        <translation>データベース「%1」に破損したノートがあります: %2。「velmora verify --repair」を実行すると、同期先からもう一度読み取ります。どの同期先にもない場合は、本文を確認して編集してください。</translation>
    </message>
    <message>
        <source>Damaged notes in the database “%1” that no location could restore: %2. Check their texts, edit them and synchronize, or restore a backup of the profile.</source>
        <translation>データベース「%1」に、どの同期先からも復元できなかった破損したノートがあります: %2。本文を確認して編集し、同期してください。または、プロファイルのバックアップを復元してください。</translation>
    </message>
    <message>
        <source>Changes of notes in the database “%1” that this computer has lost: %2. “velmora verify --repair” reads them again from the locations. If no location has them, synchronize on the other computers, then here, or restore a backup of the profile.</source>
        <translation>データベース「%1」で、このコンピューターから失われたノートの変更: %2。「velmora verify --repair」を実行すると、同期先からもう一度読み取ります。どの同期先にもない場合は、ほかのコンピューターで同期してからここで同期するか、プロファイルのバックアップを復元してください。</translation>
    </message>
    <message>
        <source>Changes of notes in the database “%1” that this computer has lost and that no location could restore: %2. Synchronize on the other computers, then here, or restore a backup of the profile.</source>
        <translation>データベース「%1」で、このコンピューターから失われ、どの同期先からも復元できなかったノートの変更: %2。ほかのコンピューターで同期してからここで同期するか、プロファイルのバックアップを復元してください。</translation>
    </message>
    <message>
        <source>“%1”</source>
        <translation>「%1」</translation>
    </message>
    <message numerus="yes">
        <source>%1 and %2 more</source>
        <translation>
            <numerusform>%1、ほか%2件</numerusform>
        </translation>
    </message>
    <message>
        <source>name of a database</source>
        <translation>データベースの名前</translation>
    </message>
    <message>
        <source>lost changes: %1</source>
        <translation>失われた変更: %1</translation>
    </message>
    <message>
        <source>databases: %1, notes: %2</source>
        <translation>データベース: %1、ノート: %2</translation>
    </message>
    <message>
        <source>“%1” at “%2”</source>
        <translation>「%2」の「%1」</translation>
    </message>
    <message>
        <source>The location no longer contains the database. Synchronize to send everything again.</source>
        <translation>同期先にデータベースがなくなりました。同期して、すべてをもう一度送信してください。</translation>
    </message>
    <message>
        <source>was never synchronized</source>
        <translation>一度も同期されていません</translation>
    </message>
    <message>
        <source>records: %1, moved aside: %2</source>
        <translation>レコード: %1、移動: %2</translation>
    </message>
    <message>
        <source>The database “%1” is not on this computer yet. Synchronize it with the location.</source>
        <translation>データベース「%1」は、まだこのコンピューターにありません。同期先と同期してください。</translation>
    </message>
    <message>
        <source>Another computer changes the location. Try again later.</source>
        <translation>別のコンピューターが同期先を変更しています。後でもう一度お試しください。</translation>
    </message>
    <message>
        <source>Changes at the location that are not on this computer: %1. Synchronize to get them.</source>
        <translation>このコンピューターにない、同期先での変更: %1。受信するには同期してください。</translation>
    </message>
    <message>
        <source>Changes on this computer that are not at the location: %1. Synchronize to send them.</source>
        <translation>同期先にない、このコンピューターでの変更: %1。送信するには同期してください。</translation>
    </message>
    <message>
        <source>The record “%1” was damaged and is written again.</source>
        <translation>レコード「%1」は破損していたため、もう一度書き込まれます。</translation>
    </message>
    <message>
        <source>The record “%1” is damaged. Synchronize the other computers that use this location, because one of them may write it again.</source>
        <translation>レコード「%1」は破損しています。この同期先を使うほかのコンピューターを同期してください。そのいずれかがレコードをもう一度書き込む可能性があります。</translation>
    </message>
    <message>
        <source>“%1” is not used, because records have other names. Move it to another folder, or remove it if you do not need it.</source>
        <translation>「%1」は使用されません。レコードの名前ではないためです。別のフォルダーに移動するか、不要であれば削除してください。</translation>
    </message>
    <message>
        <source>Inbox</source>
        <translation>インボックス</translation>
    </message>
    <message>
        <source>Projects</source>
        <translation>プロジェクト</translation>
    </message>
    <message>
        <source>Recipes</source>
        <translation>レシピ</translation>
    </message>
    <message>
        <source>Bookshelf</source>
        <translation>本棚</translation>
    </message>
    <message>
        <source>Measure the alcove beside the window.
Boards of oak, 24 mm; four of them.
Ask Ida for the long clamps.</source>
        <translation>窓の横のくぼみの寸法を測る。
オーク材の板、24 mm、4枚。
井田さんに長いクランプを借りられるか聞く。</translation>
    </message>
    <message>
        <source>Garden</source>
        <translation>庭</translation>
    </message>
    <message>
        <source>Cut back the roses in March.
Plant beans once the nights stay above eight degrees.</source>
        <translation>3月にバラを剪定する。
夜も8度を下回らなくなったら豆をまく。</translation>
    </message>
    <message>
        <source>Pancakes</source>
        <translation>パンケーキ</translation>
    </message>
    <message>
        <source>250 g flour
500 ml milk
3 eggs
A pinch of salt

Stir, let it rest for half an hour, bake in butter.</source>
        <translation>小麦粉 250 g
牛乳 500 ml
卵 3個
塩 ひとつまみ

混ぜて30分休ませ、バターで焼く。</translation>
    </message>
    <message>
        <source>Tomato Soup</source>
        <translation>トマトスープ</translation>
    </message>
    <message>
        <source>1 kg tomatoes, 2 onions, 1 clove of garlic

Roast everything for forty minutes, add stock, blend.</source>
        <translation>トマト 1 kg、玉ねぎ 2個、にんにく 1かけ

すべてを40分ローストし、ブイヨンを加えてミキサーにかける。</translation>
    </message>
    <message>
        <source>Shopping</source>
        <translation>買い物</translation>
    </message>
    <message>
        <source>Flour, milk, eggs, tomatoes</source>
        <translation>小麦粉、牛乳、卵、トマト</translation>
    </message>
    <message>
        <source>&amp;Remove Schedule</source>
        <translation>スケジュールを削除(&amp;R)</translation>
    </message>
    <message>
        <source>Databases</source>
        <translation>データベース</translation>
    </message>
    <message>
        <source>Days of the weekly synchronization</source>
        <translation>毎週の同期の曜日</translation>
    </message>
    <message>
        <source>Every &amp;day</source>
        <translation>毎日(&amp;D)</translation>
    </message>
    <message>
        <source>Every &amp;hour</source>
        <translation>毎時(&amp;H)</translation>
    </message>
    <message>
        <source>Every &amp;week</source>
        <translation>毎週(&amp;W)</translation>
    </message>
    <message>
        <source>The database is then synchronized only when you ask for it, or when it is opened or closed.</source>
        <translation>以後、データベースは、あなたが指示したとき、または開くときや閉じるときにだけ同期されます。</translation>
    </message>
    <message>
        <source>Location</source>
        <translation>同期先</translation>
    </message>
    <message>
        <source>Location commands</source>
        <translation>同期先のコマンド</translation>
    </message>
    <message>
        <source>Minutes past the hour</source>
        <translation>毎時何分か</translation>
    </message>
    <message>
        <source>Never synchronized</source>
        <translation>一度も同期されていません</translation>
    </message>
    <message>
        <source>Next synchronization: %1</source>
        <translation>次回の同期: %1</translation>
    </message>
    <message>
        <source>No database is open.</source>
        <translation>開いているデータベースがありません。</translation>
    </message>
    <message>
        <source>No synchronization is scheduled.</source>
        <translation>予定されている同期はありません。</translation>
    </message>
    <message>
        <source>Reading the location</source>
        <translation>同期先を読み取っています</translation>
    </message>
    <message>
        <source>Schedule of the selected database</source>
        <translation>選択したデータベースのスケジュール</translation>
    </message>
    <message>
        <source>An error occurred at this location. Show it.</source>
        <translation>この同期先でエラーが発生しました。エラーを表示します。</translation>
    </message>
    <message>
        <source>Sync Preferences cannot be used: the sync plug-in has no %1. Install both from the same version of Velmora.</source>
        <translation>同期設定を使用できません。同期プラグインに%1がありません。両方を同じバージョンのVelmoraからインストールしてください。</translation>
    </message>
    <message>
        <source>Sync Preferences cannot be used: it needs version %1 of the interface to the sync plug-in, which offers version %2. Install both from the same version of Velmora.</source>
        <translation>同期設定を使用できません。同期プラグインのインターフェイスのバージョン%1が必要ですが、プラグインが提供するのはバージョン%2です。両方を同じバージョンのVelmoraからインストールしてください。</translation>
    </message>
    <message>
        <source>Sync locations</source>
        <translation>同期先</translation>
    </message>
    <message>
        <source>Synchronize this database with its ticked locations now</source>
        <translation>このデータベースを、チェックの付いた同期先と今すぐ同期します</translation>
    </message>
    <message>
        <source>Synchronize with</source>
        <translation>同期先</translation>
    </message>
    <message>
        <source>Synchronized %1</source>
        <translation>%1に同期</translation>
    </message>
    <message>
        <source>There is no location to synchronize with yet.</source>
        <translation>同期できる同期先がまだありません。</translation>
    </message>
    <message>
        <source>Time of the daily synchronization</source>
        <translation>毎日の同期の時刻</translation>
    </message>
    <message>
        <source>Time of the weekly synchronization</source>
        <translation>毎週の同期の時刻</translation>
    </message>
    <message>
        <source>Version of this pane</source>
        <translation>この設定パネルのバージョン</translation>
    </message>
    <message>
        <source>When the database is &amp;closed</source>
        <translation>データベースを閉じるとき(&amp;C)</translation>
    </message>
    <message>
        <source>When the database is &amp;opened</source>
        <translation>データベースを開くとき(&amp;O)</translation>
    </message>
    <message>
        <source>Whether the selected database synchronizes with this location</source>
        <translation>選択したデータベースをこの同期先と同期するかどうか</translation>
    </message>
    <message>
        <source>minutes past the hour</source>
        <translation>分</translation>
    </message>
    <message>
        <source>on</source>
        <translation>曜日:</translation>
    </message>
    <message>
        <source>New</source>
        <translation>新規</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>開く</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>保存</translation>
    </message>
    <message>
        <source>Import…</source>
        <translation>インポート…</translation>
    </message>
    <message>
        <source>Import databases that exist only at a location</source>
        <translation>同期先だけにあるデータベースをインポートします</translation>
    </message>
    <message>
        <source>Add</source>
        <translation>追加</translation>
    </message>
    <message>
        <source>Add a location</source>
        <translation>同期先を追加します</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>削除</translation>
    </message>
    <message>
        <source>Stop synchronizing with the selected location. What is stored there stays.</source>
        <translation>選択した同期先との同期をやめます。そこに保存されているものは残ります。</translation>
    </message>
    <message>
        <source>Edit…</source>
        <translation>編集…</translation>
    </message>
    <message>
        <source>More</source>
        <translation>その他</translation>
    </message>
    <message>
        <source>More commands for the selected location</source>
        <translation>選択した同期先のその他のコマンド</translation>
    </message>
    <message>
        <source>New Folder Store…</source>
        <translation>新しいフォルダーストア…</translation>
    </message>
    <message>
        <source>Existing Folder Store…</source>
        <translation>既存のフォルダーストア…</translation>
    </message>
    <message>
        <source>WebDAV Server…</source>
        <translation>WebDAVサーバー…</translation>
    </message>
    <message>
        <source>Dropbox Account…</source>
        <translation>Dropboxアカウント…</translation>
    </message>
    <message>
        <source>Direct Connection…</source>
        <translation>直接接続…</translation>
    </message>
    <message>
        <source>Check</source>
        <translation>確認</translation>
    </message>
    <message>
        <source>Clean Up</source>
        <translation>整理</translation>
    </message>
    <message>
        <source>Show in File Manager</source>
        <translation>ファイルマネージャーで表示</translation>
    </message>
    <message>
        <source>Direct Connections…</source>
        <translation>直接接続…</translation>
    </message>
    <message>
        <source>Folder Access…</source>
        <translation>フォルダーへのアクセス…</translation>
    </message>
    <message>
        <source>WebDAV Location</source>
        <translation>WebDAVの同期先</translation>
    </message>
    <message>
        <source>Server:</source>
        <translation>サーバー:</translation>
    </message>
    <message>
        <source>dav.example.org</source>
        <translation>dav.example.org</translation>
    </message>
    <message>
        <source>Use HTTPS</source>
        <translation>HTTPSを使う</translation>
    </message>
    <message>
        <source>Port:</source>
        <translation>ポート:</translation>
    </message>
    <message>
        <source>User name:</source>
        <translation>ユーザー名:</translation>
    </message>
    <message>
        <source>Password:</source>
        <translation>パスワード:</translation>
    </message>
    <message>
        <source>Folder on the server:</source>
        <translation>サーバーのフォルダー:</translation>
    </message>
    <message>
        <source>optional, such as documents/sync</source>
        <translation>省略可能。例: documents/sync</translation>
    </message>
    <message>
        <source>Store name:</source>
        <translation>ストア名:</translation>
    </message>
    <message>
        <source>Without HTTPS, others on the network can read the password and your notes.</source>
        <translation>HTTPSを使わないと、ネットワークのほかの人がパスワードとノートを読み取れます。</translation>
    </message>
    <message>
        <source>Forget the password of “%1”?</source>
        <translation>「%1」のパスワードを消去しますか？</translation>
    </message>
    <message>
        <source>No location of the list uses this password any more.</source>
        <translation>一覧には、このパスワードを使う同期先がもうありません。</translation>
    </message>
    <message>
        <source>Forget</source>
        <translation>消去</translation>
    </message>
    <message>
        <source>Keep</source>
        <translation>残す</translation>
    </message>
    <message numerus="yes">
        <source>%1 more items of “%2” could not be synchronized with “%3”.</source>
        <translation>
            <numerusform>「%2」の項目をさらに%1件、「%3」と同期できませんでした。</numerusform>
        </translation>
    </message>
    <message>
        <source>More of these, which are not listed: %1.</source>
        <translation>ほかに、一覧にない項目: %1件</translation>
    </message>
    <message>
        <source>The password is saved in your keyring and nowhere else.</source>
        <translation>パスワードはあなたのキーリングにだけ保存されます。</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>キャンセル</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Folder Location</source>
        <translation>フォルダーの同期先</translation>
    </message>
    <message>
        <source>A sync store is a package in a folder that all your computers can access, such as one on a shared volume.</source>
        <translation>同期ストアは、共有ディスクなど、あなたのすべてのコンピューターからアクセスできるフォルダーに置くパッケージです。</translation>
    </message>
    <message>
        <source>Sync store:</source>
        <translation>同期ストア:</translation>
    </message>
    <message>
        <source>Sync store</source>
        <translation>同期ストア</translation>
    </message>
    <message>
        <source>None chosen yet</source>
        <translation>まだ選ばれていません</translation>
    </message>
    <message>
        <source>New…</source>
        <translation>新規…</translation>
    </message>
    <message>
        <source>Choose…</source>
        <translation>選択…</translation>
    </message>
    <message>
        <source>The certificate “%1” of this computer could not be created. Check the permissions of the profile folder.</source>
        <translation>このコンピューターの証明書「%1」を作成できませんでした。プロファイルのフォルダーのアクセス権を確認してください。</translation>
    </message>
    <message>
        <source>The certificate “%1” of this computer cannot be read: %2. Check its permissions, then turn the server on again.</source>
        <translation>このコンピューターの証明書「%1」を読み取れません: %2。アクセス権を確認してから、サーバーをもう一度オンにしてください。</translation>
    </message>
    <message>
        <source>The certificate “%1” of this computer is damaged. Delete it and pair the other computers again.</source>
        <translation>このコンピューターの証明書「%1」は破損しています。証明書を削除して、ほかのコンピューターともう一度ペアリングしてください。</translation>
    </message>
    <message>
        <source>“%1” cannot be reached. Check that the computer is on and lets other computers synchronize.</source>
        <translation>「%1」に接続できません。コンピューターの電源が入っていて、ほかのコンピューターに同期を許可していることを確認してください。</translation>
    </message>
    <message>
        <source>The connection to “%1” was lost. Try again.</source>
        <translation>「%1」との接続が失われました。もう一度お試しください。</translation>
    </message>
    <message>
        <source>This computer is in no network. Port: %1</source>
        <translation>このコンピューターはどのネットワークにも接続していません。ポート: %1</translation>
    </message>
    <message>
        <source>Address: %1. Port: %2</source>
        <translation>アドレス: %1。ポート: %2</translation>
    </message>
    <message>
        <source>Other computers list this one as “%1”.</source>
        <translation>ほかのコンピューターでは、このコンピューターは「%1」と表示されます。</translation>
    </message>
    <message>
        <source>It shows a code. Allow it only if the code is the same as here.</source>
        <translation>相手のコンピューターにコードが表示されています。ここに表示されているコードと同じ場合にだけ許可してください。</translation>
    </message>
    <message>
        <source>It replaces another computer of this name.</source>
        <translation>この名前の別のコンピューターと置き換わります。</translation>
    </message>
    <message>
        <source>Whether it replaces another computer of this name is unknown, because the keyring cannot be read.</source>
        <translation>キーリングを読み取れないため、この名前の別のコンピューターと置き換わるかどうかはわかりません。</translation>
    </message>
    <message>
        <source>Let “%1” synchronize with this computer?</source>
        <translation>「%1」に、このコンピューターとの同期を許可しますか？</translation>
    </message>
    <message>
        <source>Allow</source>
        <translation>許可</translation>
    </message>
    <message>
        <source>Refuse</source>
        <translation>拒否</translation>
    </message>
    <message>
        <source>The server cannot use the port %1. Choose another port. (%2)</source>
        <translation>サーバーがポート%1を使用できません。別のポートを選んでください。（%2）</translation>
    </message>
    <message>
        <source>Connect with “%1”?</source>
        <translation>「%1」に接続しますか？</translation>
    </message>
    <message>
        <source>It shows a code. Connect only if the code is the same as here.</source>
        <translation>相手のコンピューターにコードが表示されています。ここに表示されているコードと同じ場合にだけ接続してください。</translation>
    </message>
    <message>
        <source>Connect</source>
        <translation>接続</translation>
    </message>
    <message>
        <source>“%1” is not the computer that was paired. If this is intended, remove the location and add it again.</source>
        <translation>「%1」は、ペアリングしたコンピューターではありません。意図したことであれば、同期先を削除して、もう一度追加してください。</translation>
    </message>
    <message>
        <source>“%1” is busy with another request. Try again later.</source>
        <translation>「%1」は別の要求を処理しています。後でもう一度お試しください。</translation>
    </message>
    <message>
        <source>“%1” does not allow this computer to synchronize. Allow it there and try again.</source>
        <translation>「%1」は、このコンピューターに同期を許可していません。そのコンピューターで許可して、もう一度お試しください。</translation>
    </message>
    <message>
        <source>“%1” sent an invalid response. Use the same version of Velmora on both computers.</source>
        <translation>「%1」が無効な応答を送信しました。両方のコンピューターで同じバージョンのVelmoraを使ってください。</translation>
    </message>
    <message>
        <source>The message is not valid.</source>
        <translation>メッセージが無効です。</translation>
    </message>
    <message>
        <source>The message is too large or has too many parts.</source>
        <translation>メッセージが大きすぎるか、部分が多すぎます。</translation>
    </message>
    <message>
        <source>The computer “%1” cannot read or write its sync store. Check its disk.</source>
        <translation>コンピューター「%1」は同期ストアを読み書きできません。そのコンピューターのディスクを確認してください。</translation>
    </message>
    <message>
        <source>Folder Access</source>
        <translation>フォルダーへのアクセス</translation>
    </message>
    <message>
        <source>Velmora can access these folders:</source>
        <translation>Velmoraがアクセスできるフォルダー:</translation>
    </message>
    <message>
        <source>Folders that Velmora can access</source>
        <translation>Velmoraがアクセスできるフォルダー</translation>
    </message>
    <message>
        <source>Add…</source>
        <translation>追加…</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>閉じる</translation>
    </message>
    <message>
        <source>Computers on the local network:</source>
        <translation>ローカルネットワークのコンピューター:</translation>
    </message>
    <message>
        <source>Computers on the local network</source>
        <translation>ローカルネットワークのコンピューター</translation>
    </message>
    <message>
        <source>No computer has been found yet. Turn on its server there under “Direct Connections…”, or enter its address.</source>
        <translation>コンピューターはまだ見つかっていません。相手のコンピューターで「直接接続…」を開いてサーバーを有効にするか、アドレスを入力してください。</translation>
    </message>
    <message>
        <source>Host:</source>
        <translation>ホスト:</translation>
    </message>
    <message>
        <source>computer.local</source>
        <translation>computer.local</translation>
    </message>
    <message>
        <source>Import Databases</source>
        <translation>データベースのインポート</translation>
    </message>
    <message>
        <source>Import databases from:</source>
        <translation>データベースのインポート元:</translation>
    </message>
    <message>
        <source>There is no location to import from yet.</source>
        <translation>インポートできる同期先がまだありません。</translation>
    </message>
    <message>
        <source>Continue</source>
        <translation>続ける</translation>
    </message>
    <message>
        <source>Databases that this computer does not have:</source>
        <translation>このコンピューターにないデータベース:</translation>
    </message>
    <message>
        <source>Databases to import</source>
        <translation>インポートするデータベース</translation>
    </message>
    <message>
        <source>This location contains no database that this computer does not have.</source>
        <translation>この同期先には、このコンピューターにないデータベースはありません。</translation>
    </message>
    <message>
        <source>Warning</source>
        <translation>警告</translation>
    </message>
    <message>
        <source>Back</source>
        <translation>戻る</translation>
    </message>
    <message>
        <source>Import</source>
        <translation>インポート</translation>
    </message>
    <message>
        <source>Direct Connections</source>
        <translation>直接接続</translation>
    </message>
    <message>
        <source>Let other computers synchronize with this one</source>
        <translation>ほかのコンピューターに、このコンピューターとの同期を許可</translation>
    </message>
    <message>
        <source>Computers that may connect:</source>
        <translation>接続できるコンピューター:</translation>
    </message>
    <message>
        <source>Computers that may connect</source>
        <translation>接続できるコンピューター</translation>
    </message>
    <message>
        <source>When a computer connects for the first time, you are asked for permission. Open this window again to see it in the list.</source>
        <translation>コンピューターが初めて接続するとき、許可を求められます。リストに表示するには、このウインドウをもう一度開いてください。</translation>
    </message>
    <message>
        <source>Revoke</source>
        <translation>取り消す</translation>
    </message>
    <message>
        <source>Prevent the selected computer from connecting.</source>
        <translation>選択したコンピューターが接続できないようにします。</translation>
    </message>
    <message>
        <source>A computer that may connect can read and change the ticked databases. New databases are ticked.</source>
        <translation>接続できるコンピューターは、チェックの付いたデータベースを読み取り、変更できます。新しいデータベースにはチェックが付きます。</translation>
    </message>
    <message>
        <source>Databases that other computers can read and change</source>
        <translation>ほかのコンピューターが読み取り、変更できるデータベース</translation>
    </message>
    <message>
        <source>Last connected: %1</source>
        <translation>前回の接続: %1</translation>
    </message>
    <message>
        <source>Last connected: unknown</source>
        <translation>前回の接続: 不明</translation>
    </message>
    <message>
        <source>“%1” belongs to a database that is not served.</source>
        <translation>「%1」は、提供されていないデータベースのものです。</translation>
    </message>
    <message>
        <source>“%1” does not serve this database. Tick it there under “Direct Connections…” in Sync Preferences, and synchronize again.</source>
        <translation>「%1」はこのデータベースを提供していません。そのコンピューターの同期設定で「直接接続…」を開いてデータベースにチェックを付け、もう一度同期してください。</translation>
    </message>
    <message>
        <source>Prevent “%1” from connecting?</source>
        <translation>「%1」が接続できないようにしますか？</translation>
    </message>
    <message>
        <source>The record “%1” is too large and was not read. Move it to another folder if it does not belong there.</source>
        <translation>レコード「%1」が大きすぎるため、読み取られませんでした。そこにあるべきでない場合は、別のフォルダーに移動してください。</translation>
    </message>
    <message>
        <source>The record “%1” was created by a newer version of Velmora. Update Velmora to read it.</source>
        <translation>レコード「%1」は、新しいバージョンのVelmoraで作成されました。読み取るには、Velmoraを更新してください。</translation>
    </message>
    <message>
        <source>“%1” is not a valid identifier of a note. Please report this as an error of Velmora.</source>
        <translation>「%1」はノートの有効な識別子ではありません。Velmoraの不具合として報告してください。</translation>
    </message>
    <message>
        <source>The edits of “%1” have changed meanwhile, so none was removed. Compare them again, then decide.</source>
        <translation>「%1」の編集内容がその間に変わったため、どれも削除されませんでした。もう一度比較してから決めてください。</translation>
    </message>
    <message>
        <source>The note “%1” has changed meanwhile. Select it again.</source>
        <translation>ノート「%1」はその間に変更されました。もう一度選択してください。</translation>
    </message>
    <message>
        <source>The note “%1” is too long to be synchronized. Divide it into several notes.</source>
        <translation>ノート「%1」は長すぎるため、同期できません。いくつかのノートに分けてください。</translation>
    </message>
    <message>
        <source>The name of the database is too long. Enter a shorter one.</source>
        <translation>データベースの名前が長すぎます。もっと短い名前を入力してください。</translation>
    </message>
    <message>
        <source>“%1” is not a valid identifier of a database. Untick the location for this database.</source>
        <translation>「%1」はデータベースの有効な識別子ではありません。このデータベースの同期先のチェックを外してください。</translation>
    </message>
    <message>
        <source>The database “%1” exists neither on this computer nor at the location. Synchronize on the computer that has it, then here.</source>
        <translation>データベース「%1」は、このコンピューターにも同期先にもありません。データベースがあるコンピューターで同期してから、ここで同期してください。</translation>
    </message>
    <message>
        <source>“%1” was cleaned up at “%2”.</source>
        <translation>「%2」の「%1」を整理しました。</translation>
    </message>
    <message>
        <source>“%1” was synchronized with “%2”.</source>
        <translation>「%1」を「%2」と同期しました。</translation>
    </message>
    <message>
        <source>“%1” could not be cleaned up at “%2”: %3</source>
        <translation>「%2」の「%1」を整理できませんでした: %3</translation>
    </message>
    <message>
        <source>“%1” could not be synchronized with “%2”: %3</source>
        <translation>「%1」を「%2」と同期できませんでした: %3</translation>
    </message>
    <message>
        <source>“%1” could not be cleaned up because the database is not on this computer. Import the database, then try again.</source>
        <translation>データベースがこのコンピューターにないため、「%1」を整理できませんでした。データベースをインポートして、もう一度お試しください。</translation>
    </message>
    <message>
        <source>Some items of “%1” could not be synchronized with “%2”: %3</source>
        <translation>「%1」の一部の項目を「%2」と同期できませんでした: %3</translation>
    </message>
    <message>
        <source>Cleaning up “%1” at “%2”…</source>
        <translation>「%2」の「%1」を整理しています…</translation>
    </message>
    <message>
        <source>Synchronizing “%1” with “%2”…</source>
        <translation>「%1」を「%2」と同期しています…</translation>
    </message>
    <message>
        <source>No web browser could be opened to sign in to Dropbox. Set a default web browser and try again.</source>
        <translation>Dropboxにサインインするためのウェブブラウザーを開けませんでした。既定のウェブブラウザーを設定して、もう一度お試しください。</translation>
    </message>
    <message>
        <source>Dropbox cannot be used because no application key is configured. Velmora’s documentation describes how to set one.</source>
        <translation>アプリケーションキーが設定されていないため、Dropboxを使用できません。設定方法はVelmoraの説明書にあります。</translation>
    </message>
    <message>
        <source>The port “%1” configured for Dropbox is not valid. Use a number from 0 to 65535.</source>
        <translation>Dropboxに設定されたポート「%1」は無効です。0から65535までの数を使ってください。</translation>
    </message>
    <message>
        <source>The address “%1” configured for Dropbox is not secure. Use an https address.</source>
        <translation>Dropboxに設定されたアドレス「%1」は安全ではありません。httpsのアドレスを使ってください。</translation>
    </message>
    <message>
        <source>Velmora is not signed in to Dropbox as “%1”. Edit the location to sign in.</source>
        <translation>VelmoraはDropboxに「%1」としてサインインしていません。同期先を編集してサインインしてください。</translation>
    </message>
    <message>
        <source>You signed in to Dropbox as “%1”, but this location belongs to “%2”. Sign out of Dropbox in your browser, edit the location again, and sign in as “%2”.</source>
        <translation>Dropboxに「%1」としてサインインしましたが、この同期先は「%2」のものです。ブラウザーでDropboxからサインアウトし、もう一度同期先を編集して、「%2」としてサインインしてください。</translation>
    </message>
    <message>
        <source>The sign-in to Dropbox as “%1” is no longer valid. Edit the location to sign in again.</source>
        <translation>Dropboxへの「%1」としてのサインインは無効になりました。同期先を編集して、もう一度サインインしてください。</translation>
    </message>
    <message>
        <source>The response of the web browser cannot be received: %1. Quit the program that uses this port, then sign in again.</source>
        <translation>ウェブブラウザーの応答を受信できません: %1。このポートを使っているプログラムを終了してから、もう一度サインインしてください。</translation>
    </message>
    <message>
        <source>The sign-in to Dropbox timed out. Try again.</source>
        <translation>Dropboxへのサインインの時間が切れました。もう一度お試しください。</translation>
    </message>
    <message>
        <source>You can close this window now and return to Velmora.</source>
        <translation>このウィンドウを閉じて、Velmoraに戻ることができます。</translation>
    </message>
    <message>
        <source>Velmora has not requested this page. Close it, and connect to Dropbox again in Velmora.</source>
        <translation>Velmoraはこのページを要求していません。ページを閉じて、Velmoraでもう一度Dropboxに接続してください。</translation>
    </message>
    <message>
        <source>Access to Dropbox was denied in the web browser. Try again and allow it.</source>
        <translation>ウェブブラウザーでDropboxへのアクセスが拒否されました。もう一度試して、許可してください。</translation>
    </message>
    <message>
        <source>The web browser sent an invalid response. Sign in again.</source>
        <translation>ウェブブラウザーが無効な応答を送信しました。もう一度サインインしてください。</translation>
    </message>
    <message>
        <source>The Dropbox of “%1” is full. Delete files there.</source>
        <translation>「%1」のDropboxに空き容量がありません。Dropboxのファイルを削除してください。</translation>
    </message>
    <message>
        <source>Dropbox rejected the sign-in. Try again.</source>
        <translation>Dropboxがサインインを拒否しました。もう一度お試しください。</translation>
    </message>
    <message>
        <source>Velmora has no access to the folder “%1”. Grant it under “Folder Access…”.</source>
        <translation>Velmoraはフォルダー「%1」にアクセスできません。「フォルダーへのアクセス…」で許可してください。</translation>
    </message>
    <message>
        <source>The profile “%1” is empty, although it has been used. Restore it from a backup or use another profile.</source>
        <translation>プロファイル「%1」は使用されていたはずですが、空になっています。バックアップから復元するか、別のプロファイルを使ってください。</translation>
    </message>
    <message>
        <source>The folder “%1” of the profile cannot be read: %2. Check its disk and its permissions, then try again.</source>
        <translation>プロファイルのフォルダー「%1」を読み取れません: %2。ディスクとアクセス権を確認して、もう一度お試しください。</translation>
    </message>
    <message>
        <source>The sync locations of the damaged profile “%1” cannot be read. Add them again in Sync Preferences, then import your databases.</source>
        <translation>破損したプロファイル「%1」の同期先を読み取れません。同期設定で同期先をもう一度追加してから、データベースをインポートしてください。</translation>
    </message>
    <message>
        <source>Some changes cannot be read from the damaged profile “%1” and may be missing now. Synchronize, so that they are read from the locations. The damaged files are kept in the folder “Damaged Profiles”.</source>
        <translation>破損したプロファイル「%1」から読み取れない変更があり、失われている可能性があります。同期して、同期先から読み取ってください。破損したファイルは、フォルダー「Damaged Profiles」に保管されます。</translation>
    </message>
    <message>
        <source>Damaged notes: %1.</source>
        <translation>破損したノート: %1。</translation>
    </message>
    <message>
        <source>Changes that were read from the damaged profile: %1</source>
        <translation>破損したプロファイルから読み取った変更: %1</translation>
    </message>
    <message>
        <source>The profile is missing from the folder “%1”. Restore it from a backup or use another profile.</source>
        <translation>フォルダー「%1」にプロファイルがありません。バックアップから復元するか、別のプロファイルを使ってください。</translation>
    </message>
    <message>
        <source>There is no space left on the disk with the profile “%1”. Delete files that you no longer need, then try again.</source>
        <translation>プロファイル「%1」があるディスクに空き容量がありません。不要なファイルを削除して、もう一度お試しください。</translation>
    </message>
    <message>
        <source>No backup of the profile “%1” could be made, and Velmora tries again after an hour. %2</source>
        <translation>プロファイル「%1」のバックアップを作成できませんでした。Velmoraは1時間後にもう一度試みます。%2</translation>
    </message>
    <message>
        <source>Its size is %1, and all backups together may have %2. Quit Velmora and copy the profile yourself.</source>
        <translation>プロファイルの大きさは%1で、すべてのバックアップの合計は%2までです。Velmoraを終了して、プロファイルを自分でコピーしてください。</translation>
    </message>
    <message>
        <source>The disk has only %1 left, and %2 are needed. Delete files that you no longer need.</source>
        <translation>ディスクの空き容量は%1だけですが、%2が必要です。不要なファイルを削除してください。</translation>
    </message>
    <message>
        <source>The copy is not complete. Check the disk.</source>
        <translation>コピーが不完全です。ディスクを確認してください。</translation>
    </message>
    <message>
        <source>The folder “%1” cannot be written: %2. Check its permissions and its disk.</source>
        <translation>フォルダー「%1」に書き込めません: %2。アクセス権とディスクを確認してください。</translation>
    </message>
    <message>
        <source>The profile “%1” has damaged or lost notes: %2. Synchronize, so that they are read again from the locations. If this message appears again, check the texts of the damaged notes and edit them, and synchronize on the other computers. The backups that have all notes intact are kept.</source>
        <translation>プロファイル「%1」に破損または失われたノートがあります: %2。同期すると、同期先からもう一度読み取られます。このメッセージがまた表示される場合は、破損したノートの本文を確認して編集し、ほかのコンピューターで同期してください。すべてのノートが破損せずに入っているバックアップは残されます。</translation>
    </message>
    <message>
        <source>The backup “%1” is damaged. Use another backup.</source>
        <translation>バックアップ「%1」は破損しています。別のバックアップを使ってください。</translation>
    </message>
    <message>
        <source>The profile “%1” has no intact backup. Use another profile, and get your notes from the locations with which you have synchronized.</source>
        <translation>プロファイル「%1」には、破損していないバックアップがありません。別のプロファイルを使い、同期していた同期先からノートを取得してください。</translation>
    </message>
    <message>
        <source>The profile “%1” could not be replaced: %2. Check its disk and its permissions, then try again.</source>
        <translation>プロファイル「%1」を置き換えられませんでした: %2。ディスクとアクセス権を確認して、もう一度お試しください。</translation>
    </message>
    <message>
        <source>%1 Files of the damaged profile were moved to “%2” and could not be moved back. Check the disk, then try again.</source>
        <translation>%1 破損したプロファイルのファイルは「%2」に移動され、元に戻せませんでした。ディスクを確認して、もう一度お試しください。</translation>
    </message>
    <message>
        <source>Earlier versions:</source>
        <translation>以前のバージョン:</translation>
    </message>
    <message>
        <source>Backup:</source>
        <translation>バックアップ:</translation>
    </message>
    <message>
        <source>This version of “%1” is no longer kept. Choose another version.</source>
        <translation>「%1」のこのバージョンは、もう保管されていません。別のバージョンを選んでください。</translation>
    </message>
    <message numerus="yes">
        <source>The location removes %1 of %2 notes. Nothing was changed. Synchronize again to decide what happens to these notes.</source>
        <translation>
            <numerusform>同期先でノート%2件のうち%1件が削除されています。何も変更されていません。これらのノートをどうするかを決めるには、もう一度同期してください。</numerusform>
        </translation>
    </message>
    <message>
        <source>The location lists the record “%1” but does not return it. Check the server or the disk.</source>
        <translation>同期先の一覧にレコード「%1」がありますが、同期先がレコードを返しません。サーバーまたはディスクを確認してください。</translation>
    </message>
    <message>
        <source>The location lists the record “%1” but does not return it. This computer writes its contents again.</source>
        <translation>同期先の一覧にレコード「%1」がありますが、同期先がレコードを返しません。このコンピューターが内容をもう一度書き込みます。</translation>
    </message>
    <message>
        <source>A change in “%1” exceeds the limits of a record and was not sent. Please report this as an error of Velmora.</source>
        <translation>「%1」の変更がレコードの上限を超えているため、送信されませんでした。Velmoraの不具合として報告してください。</translation>
    </message>
    <message>
        <source>The name of the database “%1” is not valid and was not sent. Rename the database and synchronize again.</source>
        <translation>データベースの名前「%1」は無効なため、送信されませんでした。データベースの名前を変更して、もう一度同期してください。</translation>
    </message>
    <message>
        <source>The note “%1” is damaged on this computer and was not sent. If synchronizing again does not repair it, check its text, edit it and synchronize.</source>
        <translation>ノート「%1」はこのコンピューターで破損しているため、送信されませんでした。もう一度同期しても修復されない場合は、本文を確認して編集し、同期してください。</translation>
    </message>
    <message>
        <source>“%1” was damaged on this computer and was read again from the location.</source>
        <translation>「%1」はこのコンピューターで破損していたため、同期先からもう一度読み取られました。</translation>
    </message>
    <message>
        <source>This computer has lost changes of notes that are not at the location any more either: %1. Synchronize on the other computers, then here. If that does not bring them back, restore a backup of the profile.</source>
        <translation>このコンピューターから失われたノートの変更があり、同期先にももうありません: %1。ほかのコンピューターで同期してから、ここで同期してください。それでも戻らない場合は、プロファイルのバックアップを復元してください。</translation>
    </message>
    <message>
        <source>This computer has lost changes of notes that were not found in any record of the location either: %1. They are not reported again, and their backups are kept as long as others. Synchronize on the other computers, then here, or restore a backup of the profile soon.</source>
        <translation>このコンピューターから失われたノートの変更があり、同期先のどのレコードにも見つかりませんでした: %1。今後は報告されず、そのバックアップの保管期間はほかのバックアップと同じになります。ほかのコンピューターで同期してからここで同期するか、早めにプロファイルのバックアップを復元してください。</translation>
    </message>
    <message>
        <source>Databases of other computers that were not added: %1. This computer adds none from direct connections if it has %2 already. To get them, use another location on both computers.</source>
        <translation>追加されなかった、ほかのコンピューターのデータベース: %1。このコンピューターは、すでに%2件ある場合、直接接続からは追加しません。取得するには、両方のコンピューターで別の同期先を使ってください。</translation>
    </message>
    <message>
        <source>“%1” contains too many files. Clean up the location on another computer, or delete the files that do not belong there.</source>
        <translation>「%1」にファイルが多すぎます。別のコンピューターで同期先を整理するか、そこにあるべきでないファイルを削除してください。</translation>
    </message>
    <message>
        <source>“%1” contains too many databases, or their names are too long. Delete the files of those that are not needed.</source>
        <translation>「%1」にデータベースが多すぎるか、その名前が長すぎます。だれも必要としないデータベースのファイルを削除してください。</translation>
    </message>
    <message>
        <source>The record “%1” has changed while it was read. Synchronize again.</source>
        <translation>レコード「%1」は、読み取り中に変更されました。もう一度同期してください。</translation>
    </message>
    <message>
        <source>The records in “%1” were replaced each time before they could be read. Synchronize again.</source>
        <translation>「%1」のレコードは、読み取られる前に毎回置き換えられました。もう一度同期してください。</translation>
    </message>
    <message>
        <source>The keyring still contains what belongs to the removed location “%1”. Velmora deletes it when it starts again. (%2)</source>
        <translation>削除された同期先「%1」に属するものが、まだキーリングにあります。Velmoraは次に起動したときに消去します。（%2）</translation>
    </message>
    <message>
        <source>“%1” and this computer are not paired: the question was not accepted. Synchronize again in a while, and accept it on both computers.</source>
        <translation>「%1」とこのコンピューターはペアリングされていません。確認が承諾されませんでした。しばらくしてからもう一度同期し、両方のコンピューターで承諾してください。</translation>
    </message>
    <message>
        <source>The list of mounted volumes cannot be read: %1. Try again.</source>
        <translation>マウントされているディスクの一覧を読み取れません: %1。もう一度お試しください。</translation>
    </message>
    <message>
        <source>The password for “%1” was not sent, because others on the network could read it. Edit the location: choose HTTPS, or accept that.</source>
        <translation>ネットワークのほかの人が読み取れる可能性があるため、「%1」のパスワードは送信されませんでした。同期先を編集して、HTTPSを選ぶか、そのことを承諾してください。</translation>
    </message>
    <message>
        <source>direct connections</source>
        <translation>直接接続</translation>
    </message>
    <message>
        <source>A schedule of “%1” was missed while Velmora was closed, and is made up for now.</source>
        <translation>Velmoraが閉じていた間に「%1」のスケジュールの時刻が過ぎたため、今から実行します。</translation>
    </message>
    <message>
        <source>Waiting to clean up “%1” at “%2”…</source>
        <translation>「%2」の「%1」の整理を待っています…</translation>
    </message>
    <message>
        <source>Waiting to synchronize “%1” with “%2”…</source>
        <translation>「%1」と「%2」の同期を待っています…</translation>
    </message>
    <message numerus="yes">
        <source>synchronized %1, but %2 items failed</source>
        <translation>
            <numerusform>%1に同期、%2件の項目が失敗</numerusform>
        </translation>
    </message>
    <message>
        <source>Synchronized %1, but some items failed</source>
        <translation>%1に同期、一部の項目が失敗</translation>
    </message>
    <message>
        <source>Some items of “%1” could not be synchronized with “%2”. Open the log to see which.</source>
        <translation>「%1」の一部の項目を「%2」と同期できませんでした。ログを開いて、どの項目かを確認してください。</translation>
    </message>
    <message>
        <source>Time: %1</source>
        <translation>時刻: %1</translation>
    </message>
    <message>
        <source>The list of unsent changes of the database “%1” was wrong. Everything is compared again.</source>
        <translation>データベース「%1」の未送信の変更の一覧に誤りがありました。すべてをもう一度比較します。</translation>
    </message>
    <message>
        <source>The recorded number of conflicts in the database “%1” is wrong. “velmora verify --repair” counts them again.</source>
        <translation>データベース「%1」の記録されている競合の件数に誤りがあります。「velmora verify --repair」で数え直します。</translation>
    </message>
    <message>
        <source>The recorded number of conflicts in the database “%1” was wrong. They were counted again.</source>
        <translation>データベース「%1」の記録されている競合の件数に誤りがありました。数え直しました。</translation>
    </message>
    <message>
        <source>The list of unsent changes of the database “%1” is wrong. “velmora verify --repair” compares everything and sends what the list lacks.</source>
        <translation>データベース「%1」の未送信の変更の一覧に誤りがあります。「velmora verify --repair」ですべてを比較し、一覧にないものを送信します。</translation>
    </message>
    <message>
        <source>Notes of “%1” that you wanted to keep were removed before you decided, for example by “velmora sync --removals remove”. To restore them, choose “Deleted Notes” in the menu “Edit”.</source>
        <translation>残そうとした「%1」のノートは、決定の前に削除されていました（たとえば「velmora sync --removals remove」によって）。復元するには、「編集」メニューの「削除されたノート」を選んでください。</translation>
    </message>
    <message>
        <source>Notes of “%1” that you wanted to remove were kept or edited before you decided, for example by “velmora sync --removals keep”. If you do not need them, delete them.</source>
        <translation>削除しようとした「%1」のノートは、決定の前に残されたか編集されていました（たとえば「velmora sync --removals keep」によって）。不要な場合は、削除してください。</translation>
    </message>
    <message>
        <source>The old backup “%1” cannot be removed: %2. Check the permissions of its folder and its disk.</source>
        <translation>古いバックアップ「%1」を削除できません: %2。フォルダーのアクセス権とディスクを確認してください。</translation>
    </message>
    <message>
        <source>The unfinished backup “%1” cannot be removed: %2. Check the permissions of its folder and its disk.</source>
        <translation>未完成のバックアップ「%1」を削除できません: %2。フォルダーのアクセス権とディスクを確認してください。</translation>
    </message>
    <message>
        <source>Files that an interrupted recovery has left in “%1” cannot be removed: %2. Check the permissions of the folder and its disk.</source>
        <translation>中断された復元が「%1」に残したファイルを削除できません: %2。フォルダーのアクセス権とディスクを確認してください。</translation>
    </message>
    <message>
        <source>An index of the profile “%1” is damaged in a way that cannot be repaired. At its start, Velmora offers to restore a backup.</source>
        <translation>プロファイル「%1」の索引が修復できない形で破損しています。Velmoraは起動時に、バックアップからの復元を提案します。</translation>
    </message>
    <message>
        <source>In a folder that your computers share</source>
        <translation>複数のコンピューターで共有しているフォルダー</translation>
    </message>
    <message>
        <source>On a WebDAV server</source>
        <translation>WebDAVサーバー</translation>
    </message>
    <message>
        <source>On another computer</source>
        <translation>ほかのコンピューター</translation>
    </message>
    <message>
        <source>Choose a computer, or enter its host.</source>
        <translation>コンピューターを選択するか、ホストを入力してください。</translation>
    </message>
    <message>
        <source>Select a location to continue.</source>
        <translation>続けるには同期先を選択してください。</translation>
    </message>
    <message>
        <source>Select the databases to import.</source>
        <translation>インポートするデータベースを選択してください。</translation>
    </message>
    <message>
        <source>Create a sync store or choose one.</source>
        <translation>同期ストアを作成するか、選択してください。</translation>
    </message>
    <message>
        <source>Synchronize “%1” with</source>
        <translation>「%1」の同期先</translation>
    </message>
    <message>
        <source>Schedule of “%1”</source>
        <translation>「%1」のスケジュール</translation>
    </message>
    <message>
        <source>“%1” can no longer be restored here. If a sync location has it, import it from there.</source>
        <translation>「%1」はここではもう復元できません。同期先にある場合は、そこからインポートしてください。</translation>
    </message>
    <message>
        <source>“%1” belongs to a deleted database and cannot be deleted. Velmora tries again when it starts. Check the permissions.</source>
        <translation>「%1」は削除されたデータベースのものですが、削除できません。Velmoraは次の起動時に再試行します。アクセス権を確認してください。</translation>
    </message>
    <message>
        <source>Notes</source>
        <translation>ノート</translation>
    </message>
    <message>
        <source>Computers that may connect can read and change it if it is ticked.</source>
        <translation>チェックが付いていると、接続できるコンピューターが読み取り、変更できます。</translation>
    </message>
    <message>
        <source>Computer on the local network</source>
        <translation>ローカルネットワークのコンピューター</translation>
    </message>
    <message>
        <source>Location to import databases from</source>
        <translation>データベースのインポート元の同期先</translation>
    </message>
    <message>
        <source>Database that this computer does not have</source>
        <translation>このコンピューターにないデータベース</translation>
    </message>
</context>
<context>
    <name>Platform</name>
    <message>
        <source>Help (?)</source>
        <translation>ヘルプ(?)</translation>
    </message>
    <message>
        <source>Open the guide (%1)</source>
        <translation>ガイドを開く(%1)</translation>
    </message>
    <message>
        <source>Further failures: %1</source>
        <translation>その他の失敗: %1</translation>
    </message>
    <message>
        <source>No file manager could be started. Install one, or open the folder “%1” in another program.</source>
        <translation>ファイルマネージャーを起動できませんでした。インストールするか、フォルダー「%1」を別のプログラムで開いてください。</translation>
    </message>
    <message>
        <source>“%1” does not exist. Check whether it was moved or renamed, and whether its volume is connected.</source>
        <translation>「%1」がありません。移動または名前の変更がされていないか、またディスクが接続されているかを確認してください。</translation>
    </message>
    <message>
        <source>Check the permissions of the file and the space on the disk.</source>
        <translation>ファイルのアクセス権とディスクの空き容量を確認してください。</translation>
    </message>
    <message>
        <source>The settings in the file “%1” cannot be read. Check the permissions of the file.</source>
        <translation>ファイル「%1」の設定を読み取れません。ファイルのアクセス権を確認してください。</translation>
    </message>
    <message>
        <source>The setting could not be saved in the file “%1”. It is lost when %2 ends.</source>
        <translation>設定をファイル「%1」に保存できませんでした。設定は%2が終了すると失われます。</translation>
    </message>
    <message>
        <source>No password service is running on this computer.</source>
        <translation>このコンピューターでパスワードサービスが実行されていません。</translation>
    </message>
    <message>
        <source>The output could not be written. Check the disk or the program that receives it, then try again.</source>
        <translation>出力を書き込めませんでした。ディスクまたは出力を受け取るプログラムを確認して、もう一度お試しください。</translation>
    </message>
    <message>
        <source>The saved password could not be read. Start or unlock the password service, then try again.</source>
        <translation>保存されたパスワードを読み取れませんでした。パスワードサービスを開始するか、ロックを解除して、もう一度お試しください。</translation>
    </message>
    <message>
        <source>A saved password or permission could not be deleted. Unlock the keyring and try again.</source>
        <translation>保存されたパスワードまたは許可を削除できませんでした。キーリングのロックを解除して、もう一度お試しください。</translation>
    </message>
    <message>
        <source>The keyring is locked.</source>
        <translation>キーリングがロックされています。</translation>
    </message>
    <message>
        <source>The name “%1” cannot be looked up in the local network, because the service Avahi does not respond (%2). Start it and try again.</source>
        <translation>Avahiサービスが応答しないため（%2）、名前「%1」をローカルネットワークで検索できません。サービスを開始して、もう一度お試しください。</translation>
    </message>
    <message>
        <source>No computer of the local network has responded to the name “%1”. Check that the computer is on and in the same network.</source>
        <translation>ローカルネットワークに、名前「%1」に応答するコンピューターがありません。コンピューターの電源が入っていて、同じネットワークにあることを確認してください。</translation>
    </message>
    <message>
        <source>The password service failed. To restart it, log out and log in again.</source>
        <translation>パスワードサービスが失敗しました。サービスを再起動するには、ログアウトして、もう一度ログインしてください。</translation>
    </message>
    <message>
        <source>Passwords cannot be saved. They are kept until you quit %1. To save them, start or unlock the password service, and enter them again.</source>
        <translation>パスワードを保存できません。パスワードは%1を終了するまで保持されます。保存するには、パスワードサービスを開始するか、ロックを解除して、もう一度入力してください。</translation>
    </message>
    <message>
        <source>yesterday at %1</source>
        <translation>昨日 %1</translation>
    </message>
    <message>
        <source>today at %1</source>
        <translation>今日 %1</translation>
    </message>
    <message>
        <source>tomorrow at %1</source>
        <translation>明日 %1</translation>
    </message>
    <message>
        <source>The file “%1” could not be written. Check its permissions and the space on its disk.</source>
        <translation>ファイル「%1」に書き込めませんでした。ファイルのアクセス権とディスクの空き容量を確認してください。</translation>
    </message>
    <message>
        <source>The file “%1” could not be read. Check its permissions and its disk.</source>
        <translation>ファイル「%1」を読み取れませんでした。ファイルのアクセス権とディスクを確認してください。</translation>
    </message>
    <message>
        <source>The folder “%1” could not be created. Check the permissions of the folder that contains it, or choose another one.</source>
        <translation>フォルダー「%1」を作成できませんでした。親フォルダーのアクセス権を確認するか、別のフォルダーを選んでください。</translation>
    </message>
    <message>
        <source>The folder “%1” could not be read. Check its permissions and its disk.</source>
        <translation>フォルダー「%1」を読み取れませんでした。アクセス権とディスクを確認してください。</translation>
    </message>
    <message>
        <source>“%1” could not be removed. Check the permissions of its folder and its disk.</source>
        <translation>「%1」を削除できませんでした。フォルダーのアクセス権とディスクを確認してください。</translation>
    </message>
    <message>
        <source>“%1” cannot be reached. Check the permissions of the folders that contain it and its disk.</source>
        <translation>「%1」にアクセスできません。それを含むフォルダーのアクセス権とディスクを確認してください。</translation>
    </message>
    <message>
        <source>The database “%1” cannot be read (%2). Try again. If that fails, check the disk and the permissions of the file.</source>
        <translation>データベース「%1」を読み取れません（%2）。もう一度お試しください。解決しない場合は、ディスクとファイルのアクセス権を確認してください。</translation>
    </message>
    <message>
        <source>The system cannot start another thread. Quit programs that you do not need, then try again.</source>
        <translation>システムはこれ以上スレッドを開始できません。不要なプログラムを終了して、もう一度お試しください。</translation>
    </message>
</context>
</TS>
