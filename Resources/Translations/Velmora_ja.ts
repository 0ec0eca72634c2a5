<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ja_JP" sourcelanguage="en_US">
<context>
    <name>ConflictBar</name>
    <message>
        <source>&amp;Compare…</source>
        <translation>比較(&amp;C)…</translation>
    </message>
    <message>
        <source>Keep Th&amp;is</source>
        <translation>この編集内容を残す(&amp;I)</translation>
    </message>
    <message>
        <source>Keep &amp;Other</source>
        <translation>もう一方を残す(&amp;O)</translation>
    </message>
    <message>
        <source>Keep &amp;Both</source>
        <translation>両方を残す(&amp;B)</translation>
    </message>
    <message>
        <source>This note was edited on two computers.</source>
        <translation>このノートは2台のコンピューターで編集されました。</translation>
    </message>
    <message numerus="yes">
        <source>This note was edited in %1 places.</source>
        <translation>
            <numerusform>このノートは%1か所で編集されました。</numerusform>
        </translation>
    </message>
    <message>
        <source>This note was edited in more places than the list shows. The other edits follow when you have decided about these.</source>
        <translation>このノートは、リストに表示されているより多くの場所で編集されました。表示中の編集について決めると、残りが表示されます。</translation>
    </message>
</context>
<context>
    <name>ConflictDialog</name>
    <message>
        <source>Compare</source>
        <translation>比較</translation>
    </message>
    <message>
        <source>This Edit</source>
        <translation>この編集内容</translation>
    </message>
    <message>
        <source>Other Edit</source>
        <translation>もう一方の編集内容</translation>
    </message>
    <message>
        <source>date unknown</source>
        <translation>日時不明</translation>
    </message>
    <message>
        <source>%1 (%2)</source>
        <translation>%1（%2）</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>閉じる(&amp;C)</translation>
    </message>
    <message>
        <source>Keep Th&amp;is</source>
        <translation>この編集内容を残す(&amp;I)</translation>
    </message>
    <message>
        <source>Keep &amp;Other</source>
        <translation>もう一方を残す(&amp;O)</translation>
    </message>
    <message>
        <source>Keep &amp;Both</source>
        <translation>両方を残す(&amp;B)</translation>
    </message>
</context>
<context>
    <name>DamagedProfileDialog</name>
    <message>
        <source>You can restore the backup that Velmora made of it on %1; later changes of notes are added to it if they can be read, and are otherwise missing until they are synchronized again. Or you can start with an empty profile and import your databases from the sync locations.</source>
        <translation>%1にVelmoraが作成したバックアップを復元できます。その後のノートの変更は、読み取れる場合はバックアップに追加され、読み取れない場合は再び同期するまで失われた状態になります。または、空のプロファイルから始めて、同期先からデータベースをインポートすることもできます。</translation>
    </message>
    <message>
        <source>There is no backup of it that can be restored. You can start with a profile that has the notes that can still be read, and import your other databases from the sync locations.</source>
        <translation>復元できるバックアップはありません。まだ読み取れるノートを含むプロファイルから始めて、ほかのデータベースを同期先からインポートできます。</translation>
    </message>
    <message>
        <source>The present files are kept in the folder “Damaged Profiles”.</source>
        <translation>現在のファイルは、フォルダー「Damaged Profiles」に保管されます。</translation>
    </message>
    <message>
        <source>Make the backups readable and start Velmora again. Or you can start with an empty profile and import your databases from the sync locations.</source>
        <translation>バックアップを読み取れるようにしてから、Velmoraをもう一度起動してください。または、空のプロファイルから始めて、同期先からデータベースをインポートすることもできます。</translation>
    </message>
    <message>
        <source>&amp;Restore the Backup of %1</source>
        <translation>%1のバックアップを復元(&amp;R)</translation>
    </message>
    <message>
        <source>Start from the Sync &amp;Locations</source>
        <translation>同期先から始める(&amp;L)</translation>
    </message>
    <message>
        <source>Show &amp;Folder</source>
        <translation>フォルダーを表示(&amp;F)</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>終了(&amp;Q)</translation>
    </message>
</context>
<context>
    <name>EventLog</name>
    <message>
        <source>Time</source>
        <translation>時刻</translation>
    </message>
    <message>
        <source>What happened</source>
        <translation>内容</translation>
    </message>
    <message>
        <source>Succeeded</source>
        <translation>成功</translation>
    </message>
    <message>
        <source>Partly</source>
        <translation>一部成功</translation>
    </message>
    <message>
        <source>Failed</source>
        <translation>失敗</translation>
    </message>
    <message>
        <source>Stopped</source>
        <translation>停止</translation>
    </message>
    <message>
        <source>%1 s</source>
        <translation>%1秒</translation>
    </message>
    <message>
        <source>%1 received, %2 sent</source>
        <translation>受信 %1件、送信 %2件</translation>
    </message>
    <message>
        <source>Result</source>
        <translation>結果</translation>
    </message>
    <message>
        <source>Duration</source>
        <translation>所要時間</translation>
    </message>
    <message>
        <source>Database</source>
        <translation>データベース</translation>
    </message>
    <message>
        <source>Location</source>
        <translation>同期先</translation>
    </message>
    <message>
        <source>Changes</source>
        <translation>変更</translation>
    </message>
</context>
<context>
    <name>HistoryDialog</name>
    <message>
        <source>&amp;Restore</source>
        <translation>復元(&amp;R)</translation>
    </message>
    <message>
        <source>Earlier Versions</source>
        <translation>以前のバージョン</translation>
    </message>
    <message>
        <source>Deleted Notes</source>
        <translation>削除されたノート</translation>
    </message>
    <message>
        <source>Title</source>
        <translation>タイトル</translation>
    </message>
    <message>
        <source>When</source>
        <translation>日時</translation>
    </message>
    <message>
        <source>Change</source>
        <translation>変更</translation>
    </message>
    <message>
        <source>Text</source>
        <translation>本文</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>閉じる(&amp;C)</translation>
    </message>
    <message numerus="yes">
        <source> days</source>
        <translation>
            <numerusform>日</numerusform>
        </translation>
    </message>
    <message>
        <source>Number of days for which deleted notes and earlier versions are kept</source>
        <translation>削除されたノートと以前のバージョンを保管する日数</translation>
    </message>
    <message>
        <source> MB</source>
        <translation> MB</translation>
    </message>
    <message>
        <source>Space for deleted notes and earlier versions</source>
        <translation>削除されたノートと以前のバージョンの容量</translation>
    </message>
    <message>
        <source>&amp;Keep deleted notes and earlier versions for</source>
        <translation>削除されたノートと以前のバージョンの保管期間(&amp;K):</translation>
    </message>
    <message>
        <source>and up to</source>
        <translation>容量の上限:</translation>
    </message>
    <message numerus="yes">
        <source>The new limits remove %1 deleted notes and earlier versions.</source>
        <translation>
            <numerusform>新しい上限にすると、削除されたノートと以前のバージョンが%1件消去されます。</numerusform>
        </translation>
    </message>
    <message>
        <source>What is removed cannot be restored any more. If you keep it, the limits stay as they were.</source>
        <translation>消去したものは復元できません。残す場合、上限は元のままになります。</translation>
    </message>
    <message>
        <source>&amp;Remove</source>
        <translation>消去(&amp;R)</translation>
    </message>
    <message>
        <source>&amp;Keep</source>
        <translation>残す(&amp;K)</translation>
    </message>
    <message>
        <source>Untitled</source>
        <translation>無題</translation>
    </message>
    <message>
        <source>No earlier versions of this note are kept.</source>
        <translation>このノートの以前のバージョンは保管されていません。</translation>
    </message>
    <message>
        <source>No deleted notes of “%1” are kept.</source>
        <translation>「%1」の削除されたノートは保管されていません。</translation>
    </message>
    <message>
        <source>A restored version replaces the note, whose present text is then kept here.</source>
        <translation>バージョンを復元するとノートが置き換えられ、現在の本文はここに保管されます。</translation>
    </message>
    <message>
        <source>Restored notes are synchronized again. They then also return on your other computers.</source>
        <translation>復元したノートは再び同期されます。ほかのコンピューターにも再び現れます。</translation>
    </message>
    <message>
        <source>Replaced on this computer</source>
        <translation>このコンピューターで置き換え</translation>
    </message>
    <message>
        <source>Deleted on this computer</source>
        <translation>このコンピューターで削除</translation>
    </message>
    <message>
        <source>Replaced by a synchronization with “%1”</source>
        <translation>「%1」との同期で置き換え</translation>
    </message>
    <message>
        <source>Deleted by a synchronization with “%1”</source>
        <translation>「%1」との同期で削除</translation>
    </message>
</context>
<context>
    <name>LaunchOptions</name>
    <message>
        <source>“%1” cannot be the value of “--%2”. Use one of these: %3</source>
        <translation>「%1」は「--%2」の値にできません。次のいずれかを指定してください: %3</translation>
    </message>
    <message>
        <source>“%1” cannot be the value of “--timeout”. Use a number of seconds greater than 0.</source>
        <translation>「%1」は「--timeout」の値にできません。0より大きい秒数を指定してください。</translation>
    </message>
    <message>
        <source>Notes and documents, synchronized with the locations you choose.</source>
        <translation>選んだ同期先と同期される、ノートと書類。</translation>
    </message>
    <message>
        <source>Use the profile in DIR.</source>
        <translation>DIRにあるプロファイルを使います。</translation>
    </message>
    <message>
        <source>Write a picture of Sync Preferences to FILE, then exit.</source>
        <translation>同期設定の画像をFILEに書き出して終了します。</translation>
    </message>
    <message>
        <source>Print the profile's databases, locations, states and schedules as JSON, then exit.</source>
        <translation>プロファイルのデータベース、同期先、状態、スケジュールをJSONで出力して終了します。</translation>
    </message>
    <message>
        <source>Use light or dark colors instead of the desktop's.</source>
        <translation>デスクトップの配色の代わりに、明るい配色または暗い配色を使います。</translation>
    </message>
    <message>
        <source>Restrict the profile to folders that you have granted access to, or not.</source>
        <translation>アクセスを許可したフォルダーだけにプロファイルを制限するか、制限しないかを指定します。</translation>
    </message>
    <message>
        <source>With “verify”: synchronize with every location and repair what is damaged there. Velmora must not be running with the same profile.</source>
        <translation>「verify」とともに指定すると、すべての同期先と同期して、そこで破損しているものを修復します。同じプロファイルでVelmoraを実行していてはいけません。</translation>
    </message>
    <message>
        <source>With “verify” and “status”: print the result as JSON.</source>
        <translation>「verify」および「status」とともに指定すると、結果をJSONで出力します。</translation>
    </message>
    <message>
        <source>With “sync”: if more than half of the notes of a database, and more than ten, would be removed, keep or remove them. Otherwise they are listed, and nothing is changed.</source>
        <translation>「sync」とともに指定します。データベースのノートの半数を超え、かつ10件を超えるノートが削除される場合に、それらを残すか削除するかを決めます。指定しない場合は一覧を表示し、何も変更しません。</translation>
    </message>
    <message>
        <source>Check the profile and every sync location and print what was found, then exit with 0 if all is well, 1 if there are problems, or 2 if something could not be checked.</source>
        <translation>プロファイルとすべての同期先を確認し、見つかったことを出力して終了します。終了コードは、すべて正常なら0、問題があれば1、確認できないものがあれば2です。</translation>
    </message>
    <message>
        <source>Synchronize these databases, or all, with their locations. Like the next two, this is done by Velmora if it is running. Exits with 0 if all is well, 1 if something failed, or 2 if the command could not be carried out.</source>
        <translation>指定したデータベース、または指定がなければすべてのデータベースを、その同期先と同期します。次の2つと同様に、Velmoraが実行中であればVelmoraに依頼します。終了コードは、すべて正常なら0、失敗したものがあれば1、コマンドを実行できなければ2です。</translation>
    </message>
    <message>
        <source>Print whether everything is synchronized. Exits with 1 if something is not.</source>
        <translation>すべてが同期されているかどうかを出力します。同期されていないものがあれば、終了コードは1です。</translation>
    </message>
    <message>
        <source>Check whether the location with this title or address can be read and written. Exits with 1 if it cannot.</source>
        <translation>このタイトルまたはアドレスの同期先を読み書きできるかどうかを確認します。できなければ、終了コードは1です。</translation>
    </message>
    <message>
        <source>With “sync”, “status” and “check”: give up after this time and exit with 3. The default is %1 for “sync” and %2 for the others.</source>
        <translation>「sync」「status」「check」とともに指定すると、この時間が過ぎたら中止し、終了コード3で終了します。既定値は「sync」では%1、ほかでは%2です。</translation>
    </message>
    <message>
        <source>Begin a new profile without notes or with examples, and ask no question.</source>
        <translation>新しいプロファイルを、質問なしで、ノートなしまたはサンプルありで始めます。</translation>
    </message>
    <message>
        <source>Open Sync Preferences, too.</source>
        <translation>同期設定も開きます。</translation>
    </message>
    <message>
        <source>“--profile” needs a folder as its value.</source>
        <translation>「--profile」の値にはフォルダを指定してください。</translation>
    </message>
    <message>
        <source>“--%1” needs one of these commands: %2</source>
        <translation>「--%1」には次のいずれかのコマンドが必要です: %2</translation>
    </message>
    <message>
        <source>“--%1” cannot be used with the command “%2”. Leave one of them out.</source>
        <translation>「--%1」はコマンド「%2」と一緒に使えません。どちらかを省いてください。</translation>
    </message>
    <message>
        <source>“%1” is not a command. Use one of these: %2</source>
        <translation>「%1」というコマンドはありません。次のいずれかを使ってください: %2</translation>
    </message>
    <message>
        <source>The command “check” needs one argument: the title or the address of a location.</source>
        <translation>コマンド「check」には同期先のタイトルまたはアドレスを1つ指定してください。</translation>
    </message>
    <message>
        <source>The command “%1” has no arguments. Leave “%2” out.</source>
        <translation>コマンド「%1」に引数はありません。「%2」を省いてください。</translation>
    </message>
</context>
<context>
    <name>LogWindow</name>
    <message>
        <source>Log</source>
        <translation>ログ</translation>
    </message>
    <message>
        <source>Log entries</source>
        <translation>ログの項目</translation>
    </message>
    <message>
        <source>All</source>
        <translation>すべて</translation>
    </message>
    <message>
        <source>&amp;Database:</source>
        <translation>データベース(&amp;D):</translation>
    </message>
    <message>
        <source>&amp;Location:</source>
        <translation>同期先(&amp;L):</translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation>コピー(&amp;C)</translation>
    </message>
    <message>
        <source>Copy the selected entries, or all if none is selected.</source>
        <translation>選択した項目をコピーします。何も選択されていなければ、すべてをコピーします。</translation>
    </message>
</context>
<context>
    <name>MainWindow</name>
    <message>
        <source>&amp;Export…</source>
        <translation>書き出す(&amp;E)…</translation>
    </message>
    <message>
        <source>E&amp;xport Note…</source>
        <translation>ノートを書き出す(&amp;X)…</translation>
    </message>
    <message>
        <source>Your changes in Sync Preferences are not saved.</source>
        <translation>同期設定での変更が保存されていません。</translation>
    </message>
    <message>
        <source>&amp;Try Again</source>
        <translation>再試行(&amp;T)</translation>
    </message>
    <message>
        <source>&amp;Discard</source>
        <translation>破棄(&amp;D)</translation>
    </message>
    <message>
        <source>&amp;Cancel</source>
        <translation>キャンセル(&amp;C)</translation>
    </message>
    <message numerus="yes">
        <source>%1 · %2 conflicts</source>
        <translation>
            <numerusform>%1 · 競合%2件</numerusform>
        </translation>
    </message>
    <message>
        <source>%1 · cannot be read</source>
        <translation>%1 · 読み取れません</translation>
    </message>
    <message>
        <source>%1 (closed)</source>
        <translation>%1（閉じています）</translation>
    </message>
    <message>
        <source>Databases</source>
        <translation>データベース</translation>
    </message>
    <message>
        <source>&amp;Database</source>
        <translation>データベース(&amp;D)</translation>
    </message>
    <message>
        <source>&amp;New Database…</source>
        <translation>新規データベース(&amp;N)…</translation>
    </message>
    <message>
        <source>&amp;Rename…</source>
        <translation>名前を変更(&amp;R)…</translation>
    </message>
    <message>
        <source>&amp;Open</source>
        <translation>開く(&amp;O)</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>終了(&amp;Q)</translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <translation>編集(&amp;E)</translation>
    </message>
    <message>
        <source>Earlier &amp;Versions…</source>
        <translation>以前のバージョン(&amp;V)…</translation>
    </message>
    <message>
        <source>&amp;Deleted Notes…</source>
        <translation>削除されたノート(&amp;D)…</translation>
    </message>
    <message>
        <source>&amp;Tools</source>
        <translation>ツール(&amp;T)</translation>
    </message>
    <message>
        <source>Sync &amp;Preferences…</source>
        <translation>同期設定(&amp;P)…</translation>
    </message>
    <message>
        <source>&amp;Log</source>
        <translation>ログ(&amp;L)</translation>
    </message>
    <message>
        <source>Commands</source>
        <translation>コマンド</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>閉じる(&amp;C)</translation>
    </message>
    <message>
        <source>New Database</source>
        <translation>新規データベース</translation>
    </message>
    <message>
        <source>Name of the new database:</source>
        <translation>新しいデータベースの名前:</translation>
    </message>
    <message>
        <source>Rename</source>
        <translation>名前を変更</translation>
    </message>
    <message>
        <source>New name of the database:</source>
        <translation>データベースの新しい名前:</translation>
    </message>
    <message>
        <source>The text of “%1”, which could not be saved before, is saved.</source>
        <translation>保存できていなかった「%1」の本文が保存されました。</translation>
    </message>
    <message>
        <source>&amp;Delete…</source>
        <translation>削除(&amp;D)…</translation>
    </message>
    <message>
        <source>Res&amp;tore Deleted Database</source>
        <translation>削除したデータベースを復元(&amp;T)</translation>
    </message>
    <message>
        <source>The inbox cannot be deleted, because every profile has one. You can delete its notes.</source>
        <translation>インボックスはどのプロファイルにもあるため、削除できません。その中のノートは削除できます。</translation>
    </message>
    <message>
        <source>“%1” was deleted. For ten minutes it can be restored with its notes, ticks and schedules.</source>
        <translation>「%1」を削除しました。10分間は、ノート、チェック、スケジュールとともに復元できます。</translation>
    </message>
    <message>
        <source>&amp;Guide</source>
        <translation>ガイド(&amp;G)</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>ヘルプ(&amp;H)</translation>
    </message>
    <message>
        <source>&amp;About Velmora</source>
        <translation>Velmoraについて(&amp;A)</translation>
    </message>
    <message>
        <source>Notes that are kept in sync between your computers.

License: Apache License 2.0</source>
        <translation>コンピューター間で同期されるノートです。

ライセンス: Apache License 2.0</translation>
    </message>
    <message>
        <source>&amp;Sync Now</source>
        <translation>今すぐ同期(&amp;S)</translation>
    </message>
    <message>
        <source>“%1” is not synchronized with any location. Tick one in Sync Preferences.</source>
        <translation>「%1」はどの同期先とも同期されていません。同期設定で同期先にチェックを付けてください。</translation>
    </message>
</context>
<context>
    <name>NotesModel</name>
    <message>
        <source>Untitled</source>
        <translation>無題</translation>
    </message>
</context>
<context>
    <name>NotesView</name>
    <message>
        <source>A title has at most %L1 characters, so not all of what you entered was added to it. Enter it into the text of the note.</source>
        <translation>タイトルは%L1文字までなので、入力した内容の一部はタイトルに入りませんでした。残りはノートの本文に入力してください。</translation>
    </message>
    <message>
        <source>The text was not inserted, because the note would be too long to be edited: it may have %L1 lines of at most %L2 characters, and %L3 characters in all. Insert a part of it, or several lines.</source>
        <translation>ノートが長くなりすぎて編集できなくなるため、テキストは挿入されませんでした。ノートは%L1行まで、1行は%L2文字まで、全体で%L3文字までです。一部だけを挿入するか、複数の行に分けてください。</translation>
    </message>
    <message>
        <source>New &amp;Note</source>
        <translation>新規ノート(&amp;N)</translation>
    </message>
    <message>
        <source>De&amp;lete Note</source>
        <translation>ノートを削除(&amp;L)</translation>
    </message>
    <message>
        <source>&amp;Undo Delete Note</source>
        <translation>ノートの削除を元に戻す(&amp;U)</translation>
    </message>
    <message>
        <source>&amp;Undo Keep</source>
        <translation>残す操作を元に戻す(&amp;U)</translation>
    </message>
    <message>
        <source>Notes</source>
        <translation>ノート</translation>
    </message>
    <message>
        <source>Title</source>
        <translation>タイトル</translation>
    </message>
    <message>
        <source>Text</source>
        <translation>本文</translation>
    </message>
    <message>
        <source>This note cannot be edited here: it contains something that the editor would change, or too many or too long lines. To go on with it, copy its text and paste it into a new note.</source>
        <translation>このノートはここでは編集できません。エディターによって変わってしまう内容、または多すぎる行や長すぎる行が含まれています。続けて使うには、本文をコピーして新しいノートに貼り付けてください。</translation>
    </message>
    <message>
        <source>This note is not saved: %1</source>
        <translation>このノートは保存されていません: %1</translation>
    </message>
    <message>
        <source>New Note</source>
        <translation>新規ノート</translation>
    </message>
    <message>
        <source>Cop&amp;y Text</source>
        <translation>本文をコピー(&amp;Y)</translation>
    </message>
    <message>
        <source>Try A&amp;gain</source>
        <translation>再試行(&amp;G)</translation>
    </message>
    <message>
        <source>Not all notes are shown, because some cannot be read. %1</source>
        <translation>読み取れないノートがあるため、一部のノートは表示されていません。%1</translation>
    </message>
</context>
<context>
    <name>PlugIns</name>
    <message>
        <source>A part of Velmora cannot be loaded: %1. Install Velmora again.</source>
        <translation>Velmoraの一部を読み込めません: %1。Velmoraをもう一度インストールしてください。</translation>
    </message>
</context>
<context>
    <name>PreferencesWindow</name>
    <message>
        <source>“%1” was removed. Its ticks and schedules can be restored with it.</source>
        <translation>「%1」を削除しました。チェックとスケジュールも含めて復元できます。</translation>
    </message>
    <message>
        <source>Sync Preferences</source>
        <translation>同期設定</translation>
    </message>
</context>
<context>
    <name>RemovalDialog</name>
    <message numerus="yes">
        <source>The synchronization with “%1” would remove %2 of the %3 notes in “%4”.</source>
        <translation>
            <numerusform>「%1」と同期すると、「%4」のノート%3件のうち%2件が削除されます。</numerusform>
        </translation>
    </message>
    <message>
        <source>Nothing has been changed yet. “velmora sync --removals keep” keeps these notes, also on your other computers; “--removals remove” removes them.</source>
        <translation>まだ何も変更されていません。「velmora sync --removals keep」を実行すると、これらのノートはほかのコンピューターでも残ります。「--removals remove」を指定すると削除されます。</translation>
    </message>
    <message>
        <source>Notes that would be removed</source>
        <translation>削除されるノート</translation>
    </message>
    <message>
        <source>Untitled</source>
        <translation>無題</translation>
    </message>
    <message numerus="yes">
        <source>… and %1 more</source>
        <translation>
            <numerusform>…ほか%1件</numerusform>
        </translation>
    </message>
    <message>
        <source>&amp;Keep the Notes</source>
        <translation>ノートを残す(&amp;K)</translation>
    </message>
    <message>
        <source>&amp;Remove Them</source>
        <translation>削除する(&amp;R)</translation>
    </message>
    <message>
        <source>Decide &amp;Later</source>
        <translation>後で決める(&amp;L)</translation>
    </message>
    <message>
        <source>Nothing has been changed yet. If you keep the notes, they also return on your other computers. If you remove them, you find them in “Deleted Notes” for a while.</source>
        <translation>まだ何も変更されていません。ノートを残すと、ほかのコンピューターにも再び現れます。削除すると、しばらくの間は「削除されたノート」にあります。</translation>
    </message>
</context>
<context>
    <name>UnsavedTextDialog</name>
    <message>
        <source>Your text is not saved.</source>
        <translation>本文が保存されていません。</translation>
    </message>
    <message>
        <source>&amp;Try Again</source>
        <translation>再試行(&amp;T)</translation>
    </message>
    <message>
        <source>&amp;Discard</source>
        <translation>破棄(&amp;D)</translation>
    </message>
    <message>
        <source>&amp;Copy Text</source>
        <translation>本文をコピー(&amp;C)</translation>
    </message>
    <message>
        <source>&amp;Keep Editing</source>
        <translation>編集を続ける(&amp;K)</translation>
    </message>
</context>
<context>
    <name>UnsavedTexts</name>
    <message>
        <source>The folder “%1”, which may contain texts that were not saved, cannot be read.</source>
        <translation>フォルダー「%1」を読み取れません。保存されていない本文が入っている可能性があります。</translation>
    </message>
    <message>
        <source>Check its permissions and its disk, and start Velmora again.</source>
        <translation>アクセス権とディスクを確認して、Velmoraをもう一度起動してください。</translation>
    </message>
    <message>
        <source>The file is damaged. Copy from it what you need, and remove it.</source>
        <translation>ファイルが破損しています。必要な部分をコピーして、ファイルを削除してください。</translation>
    </message>
    <message>
        <source>The text of “%1” cannot be kept for the next start either.</source>
        <translation>「%1」の本文は、次の起動まで保管することもできません。</translation>
    </message>
    <message>
        <source>Make room on the disk, or copy the text.</source>
        <translation>ディスクの空き容量を増やすか、本文をコピーしてください。</translation>
    </message>
    <message>
        <source>“%1”: %2</source>
        <translation>「%1」: %2</translation>
    </message>
    <message>
        <source>Texts that were not saved cannot be restored. They are kept, and Velmora tries again at each start.</source>
        <translation>保存されなかった本文を復元できません。本文は保管され、Velmoraは起動のたびに復元をもう一度試みます。</translation>
    </message>
    <message>
        <source>The file “%1”, which contains a text that was not saved, cannot be removed: %2. Remove it yourself, or the text returns at the next start.</source>
        <translation>保存されなかった本文を含むファイル「%1」を削除できません: %2。自分で削除しないと、次の起動時に本文が再び現れます。</translation>
    </message>
    <message>
        <source>The file cannot be read (%1). Check its permissions and its disk.</source>
        <translation>ファイルを読み取れません (%1)。アクセス権とディスクを確認してください。</translation>
    </message>
</context>
<context>
    <name>VelmoraApplication</name>
    <message>
        <source>Error again:</source>
        <translation>再びエラー:</translation>
    </message>
    <message>
        <source>Internal error:</source>
        <translation>内部エラー:</translation>
    </message>
    <message>
        <source>An internal error occurred, and Velmora cancelled the current action.</source>
        <translation>内部エラーが発生したため、Velmoraは現在の操作を中止しました。</translation>
    </message>
    <message>
        <source>A synchronization would remove many notes.</source>
        <translation>同期によって多くのノートが削除されます。</translation>
    </message>
</context>
<context>
    <name>VerificationOutput</name>
    <message>
        <source>%1: no problems (%2).</source>
        <translation>%1: 問題はありません（%2）。</translation>
    </message>
    <message>
        <source>%1: problems were found (%2).</source>
        <translation>%1: 問題が見つかりました（%2）。</translation>
    </message>
    <message>
        <source>%1: could not be checked.</source>
        <translation>%1: 確認できませんでした。</translation>
    </message>
    <message>
        <source>Everything is in order.</source>
        <translation>すべて正常です。</translation>
    </message>
    <message>
        <source>Problems were found. “velmora verify --repair” synchronizes and repairs what this computer can repair.</source>
        <translation>問題が見つかりました。「velmora verify --repair」を実行すると、同期して、このコンピューターで修復できるものを修復します。</translation>
    </message>
    <message>
        <source>Problems remain. Do what is said above, then run “velmora verify” again.</source>
        <translation>問題が残っています。上記のとおりにしてから、もう一度「velmora verify」を実行してください。</translation>
    </message>
    <message>
        <source>Some parts could not be checked. Remove the cause that is named above, then try again.</source>
        <translation>確認できないものがありました。上記の原因を取り除いてから、もう一度お試しください。</translation>
    </message>
</context>
<context>
    <name>ProcessProtection</name>
    <message>
        <source>Other programs of yours may be able to read passwords in the memory of Velmora, because the system did not let it protect its memory. Run no programs that you do not trust beside Velmora.</source>
        <translation>システムがメモリーの保護を許可しなかったため、あなたのほかのプログラムがVelmoraのメモリーにあるパスワードを読み取れる可能性があります。信頼できないプログラムをVelmoraと同時に実行しないでください。</translation>
    </message>
</context>
<context>
    <name>RunningInstance</name>
    <message>
        <source>A second start of Velmora will not find these windows: %1 cannot be used (%2). Check the permissions and the space of its folder, then start Velmora again.</source>
        <translation>Velmoraをもう一度起動しても、これらのウィンドウを見つけられません。%1を使用できません（%2）。そのフォルダーのアクセス権と空き容量を確認してから、Velmoraをもう一度起動してください。</translation>
    </message>
    <message>
        <source>Velmora has ended before the command was completed. Try again.</source>
        <translation>コマンドが完了する前にVelmoraが終了しました。もう一度お試しください。</translation>
    </message>
    <message>
        <source>Velmora, which is running, has another version. Quit it, then try again.</source>
        <translation>別のバージョンのVelmoraが実行中です。終了してからもう一度試してください。</translation>
    </message>
    <message>
        <source>Velmora, which is running, takes too long and continues with the command. Try again later, or state a longer time with --timeout.</source>
        <translation>実行中のVelmoraでの処理に時間がかかりすぎています。コマンドの実行は続きます。後でもう一度試すか、--timeoutで長い時間を指定してください。</translation>
    </message>
</context>
<context>
    <name>main</name>
    <message>
        <source>The picture cannot be written to %1. Check the folder and its permissions, or choose another file.</source>
        <translation>画像を%1に書き込めません。フォルダーとそのアクセス権を確認するか、別のファイルを選んでください。</translation>
    </message>
    <message>
        <source>There is no display to open a window on. A picture of Sync Preferences is in this file:</source>
        <translation>ウィンドウを開くディスプレイがありません。同期設定の画像は次のファイルにあります:</translation>
    </message>
</context>
<context>
    <name>SynchronizationSummary</name>
    <message>
        <source>%1 · next: %2</source>
        <translation>%1 · 次回: %2</translation>
    </message>
    <message>
        <source>Nothing is synchronized: no database has a ticked location</source>
        <translation>何も同期されません。チェックの付いた同期先を持つデータベースがありません</translation>
    </message>
    <message>
        <source>All up to date</source>
        <translation>すべて最新です</translation>
    </message>
    <message>
        <source>“%1” has not been synchronized with “%2” yet</source>
        <translation>「%1」はまだ「%2」と同期されていません</translation>
    </message>
    <message>
        <source>“%1” has changes that are not synchronized with “%2” yet</source>
        <translation>「%1」には、まだ「%2」と同期されていない変更があります</translation>
    </message>
    <message>
        <source>There are changes that are not synchronized yet</source>
        <translation>まだ同期されていない変更があります</translation>
    </message>
    <message numerus="yes">
        <source>%1 of %2 synchronizations failed</source>
        <translation>
            <numerusform>同期%2件のうち%1件が失敗しました</numerusform>
        </translation>
    </message>
    <message>
        <source>“%1” is not synchronized with “%2”</source>
        <translation>「%1」は「%2」と同期されていません</translation>
    </message>
    <message>
        <source>Some items of “%1” could not be synchronized with “%2”</source>
        <translation>「%1」の一部の項目を「%2」と同期できませんでした</translation>
    </message>
    <message numerus="yes">
        <source>Some items failed in %1 of %2 synchronizations</source>
        <translation>
            <numerusform>同期%2件のうち%1件で、一部の項目が失敗しました</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>SynchronizationMonitor</name>
    <message>
        <source>%1 %2 of %3</source>
        <translation>%1 %2/%3</translation>
    </message>
</context>
<context>
    <name>StatusLine</name>
    <message>
        <source>&amp;Stop</source>
        <translation>停止(&amp;S)</translation>
    </message>
    <message>
        <source>&amp;What Failed…</source>
        <translation>失敗の内容(&amp;W)…</translation>
    </message>
    <message>
        <source>Progress of the synchronization</source>
        <translation>同期の進行状況</translation>
    </message>
    <message>
        <source>Stop all synchronizations. The next one continues where they stopped.</source>
        <translation>すべての同期を停止します。次の同期は、停止したところから続きます。</translation>
    </message>
</context>
<context>
    <name>QuitSynchronization</name>
    <message>
        <source>“%1” with “%2”</source>
        <translation>「%1」と「%2」</translation>
    </message>
    <message>
        <source>Quit Velmora</source>
        <translation>Velmoraを終了</translation>
    </message>
    <message>
        <source>“%1” has changes that are not synchronized with “%2”. Synchronize them before quitting?</source>
        <translation>「%1」には、「%2」と同期されていない変更があります。終了する前に同期しますか？</translation>
    </message>
    <message>
        <source>There are changes that are not synchronized. Synchronize them before quitting?</source>
        <translation>同期されていない変更があります。終了する前に同期しますか？</translation>
    </message>
    <message numerus="yes">
        <source>and %1 more</source>
        <translation>
            <numerusform>ほか%1件</numerusform>
        </translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>終了(&amp;Q)</translation>
    </message>
    <message>
        <source>&amp;Synchronize and Quit</source>
        <translation>同期して終了(&amp;S)</translation>
    </message>
    <message>
        <source>Some changes could not be synchronized. They are saved on this computer. Quit anyway?</source>
        <translation>一部の変更を同期できませんでした。変更はこのコンピューターに保存されています。このまま終了しますか？</translation>
    </message>
</context>
<context>
    <name>QuitProgressDialog</name>
    <message>
        <source>Quit Velmora</source>
        <translation>Velmoraを終了</translation>
    </message>
    <message>
        <source>Progress of the synchronization</source>
        <translation>同期の進行状況</translation>
    </message>
    <message>
        <source>&amp;Quit Now</source>
        <translation>今すぐ終了(&amp;Q)</translation>
    </message>
    <message>
        <source>Stop the synchronization and quit. The next one continues where it stopped.</source>
        <translation>同期を停止して終了します。次の同期は、停止したところから続きます。</translation>
    </message>
    <message>
        <source>Synchronizing before quitting…</source>
        <translation>終了する前に同期しています…</translation>
    </message>
</context>
<context>
    <name>ErrorBoxes</name>
    <message>
        <source>Close</source>
        <translation>閉じる</translation>
    </message>
    <message>
        <source>Error %1 of %2</source>
        <translation>エラー %1/%2</translation>
    </message>
</context>
<context>
    <name>LogFile</name>
    <message>
        <source>The log cannot be saved in the file “%1” (%2). Check its permissions and the space on its disk.</source>
        <translation>ログをファイル「%1」に保存できません（%2）。ファイルのアクセス権とディスクの空き容量を確認してください。</translation>
    </message>
    <message>
        <source>Lines of the log file “%1” that cannot be read and are not shown: %2. Check its disk.</source>
        <translation>ログファイル「%1」のうち、読み取れないため表示されない行の数: %2。ディスクを確認してください。</translation>
    </message>
</context>
<context>
    <name>ShellCommandLine</name>
    <message>
        <source>There is no profile in the folder “%1”. State another one with --profile.</source>
        <translation>フォルダー「%1」にプロファイルがありません。--profileで別のフォルダーを指定してください。</translation>
    </message>
    <message>
        <source>The command takes longer than the allowed %1 s and was stopped. Try again, or state a longer time with --timeout.</source>
        <translation>コマンドが制限時間の%1秒を超えたため、停止しました。もう一度試すか、--timeoutで長い時間を指定してください。</translation>
    </message>
</context>
<context>
    <name>ShellCommandRunner</name>
    <message>
        <source>“%1” with “%2”</source>
        <translation>「%1」と「%2」</translation>
    </message>
    <message>
        <source>never synchronized</source>
        <translation>一度も同期されていません</translation>
    </message>
    <message>
        <source>has changes since %1</source>
        <translation>%1の同期以後に変更があります</translation>
    </message>
    <message>
        <source>up to date since %1</source>
        <translation>%1に同期済みで最新です</translation>
    </message>
    <message>
        <source>%1: the synchronization was stopped.</source>
        <translation>%1: 同期が停止されました。</translation>
    </message>
    <message>
        <source>%1: synchronized (%2 received, %3 sent)</source>
        <translation>%1: 同期しました（受信 %2件、送信 %3件）</translation>
    </message>
    <message>
        <source>There is no database “%1”. “velmora --describe” lists all.</source>
        <translation>データベース「%1」はありません。「velmora --describe」ですべてのデータベースを表示できます。</translation>
    </message>
    <message>
        <source>Nothing is synchronized. Tick a location in Sync Preferences first.</source>
        <translation>何も同期されません。先に同期設定で同期先にチェックを付けてください。</translation>
    </message>
    <message>
        <source>There is no location “%1”. State the title or address of one of these:</source>
        <translation>同期先「%1」はありません。次のいずれかのタイトルまたはアドレスを指定してください:</translation>
    </message>
    <message>
        <source>Notes of “%1” that “%2” would have removed and that were kept (%3 of %4):</source>
        <translation>「%2」によって削除されるところを残した「%1」のノート（%4件中%3件）:</translation>
    </message>
    <message>
        <source>Notes of “%1” that “%2” has removed (%3 of %4; “Deleted Notes” in the menu “Edit” restores them):</source>
        <translation>「%2」によって削除された「%1」のノート（%4件中%3件。「編集」メニューの「削除されたノート」で復元できます）:</translation>
    </message>
</context>
<context>
    <name>TrayIcon</name>
    <message>
        <source>&amp;Sync All Now</source>
        <translation>今すぐすべて同期(&amp;S)</translation>
    </message>
    <message>
        <source>&amp;Pause for an Hour</source>
        <translation>1時間一時停止(&amp;P)</translation>
    </message>
    <message>
        <source>Pause until &amp;Tomorrow</source>
        <translation>明日まで一時停止(&amp;T)</translation>
    </message>
    <message>
        <source>&amp;Resume</source>
        <translation>再開(&amp;R)</translation>
    </message>
    <message>
        <source>Show &amp;Velmora</source>
        <translation>Velmoraを表示(&amp;V)</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>終了(&amp;Q)</translation>
    </message>
    <message>
        <source>Paused</source>
        <translation>一時停止中</translation>
    </message>
</context>
<context>
    <name>BackgroundMode</name>
    <message>
        <source>Keep Synchronizing in the &amp;Background</source>
        <translation>バックグラウンドで同期を続ける(&amp;B)</translation>
    </message>
    <message>
        <source>Velmora cannot stay in the background, because this desktop shows no icons of programs. Turn them on in the desktop's settings and try again.</source>
        <translation>このデスクトップはプログラムのアイコンを表示しないため、Velmoraはバックグラウンドで動作できません。デスクトップの設定でアイコンの表示を有効にして、もう一度お試しください。</translation>
    </message>
    <message>
        <source>A synchronization failed</source>
        <translation>同期に失敗しました</translation>
    </message>
    <message>
        <source>Velmora asks for a decision</source>
        <translation>Velmoraが判断を求めています</translation>
    </message>
    <message>
        <source>A note was edited on two computers</source>
        <translation>ノートが2台のコンピューターで編集されました</translation>
    </message>
    <message>
        <source>Velmora has kept both edits. Open the note to choose one.</source>
        <translation>Velmoraは両方の編集内容を保管しています。ノートを開いて、どちらかを選んでください。</translation>
    </message>
    <message>
        <source>&amp;Hide Window</source>
        <translation>ウィンドウを隠す(&amp;H)</translation>
    </message>
    <message>
        <source>Velmora cannot stay in the background at present, because the desktop shows no icons of programs. It ends when its window is closed. Turn the icons on in the desktop's settings, and start Velmora again.</source>
        <translation>デスクトップがプログラムのアイコンを表示しないため、Velmoraは現在バックグラウンドで動作できません。ウィンドウを閉じると終了します。デスクトップの設定でアイコンの表示を有効にして、Velmoraをもう一度起動してください。</translation>
    </message>
    <message>
        <source>Do Not Stay in the Background</source>
        <translation>バックグラウンドで動作しない</translation>
    </message>
</context>
<context>
    <name>FailureSteps</name>
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
</context>
<context>
    <name>NoteExport</name>
    <message>
        <source>The file “%1” could not be written. Choose another folder.</source>
        <translation>ファイル「%1」に書き込めませんでした。別のフォルダーを選択してください。</translation>
    </message>
    <message>
        <source>Export</source>
        <translation>書き出す</translation>
    </message>
    <message>
        <source>Notes</source>
        <translation>ノート</translation>
    </message>
</context>
<context>
    <name>FirstStartDialog</name>
    <message>
        <source>Start</source>
        <translation>開始</translation>
    </message>
    <message>
        <source>Welcome to Velmora</source>
        <translation>Velmoraへようこそ</translation>
    </message>
    <message>
        <source>You can change this later in Sync Preferences.</source>
        <translation>これは後から「同期設定」で変更できます。</translation>
    </message>
    <message>
        <source>Where should your notes be kept in sync?</source>
        <translation>ノートをどこと同期しますか?</translation>
    </message>
    <message>
        <source>Decide later</source>
        <translation>後で決める</translation>
    </message>
    <message>
        <source>How do you want to begin?</source>
        <translation>どのように始めますか?</translation>
    </message>
    <message>
        <source>Without notes</source>
        <translation>ノートなし</translation>
    </message>
    <message>
        <source>With examples</source>
        <translation>サンプルあり</translation>
    </message>
    <message>
        <source>With databases from another computer</source>
        <translation>ほかのコンピューターのデータベース</translation>
    </message>
    <message>
        <source>Choose first where these databases are.</source>
        <translation>まず、データベースがある場所を選んでください。</translation>
    </message>
</context>
<context>
    <name>UndoBar</name>
    <message>
        <source>&amp;Undo</source>
        <translation>元に戻す(&amp;U)</translation>
    </message>
</context>
<context>
    <name>DeletionQuestion</name>
    <message>
        <source>Delete the database “%1”?</source>
        <translation>データベース「%1」を削除しますか？</translation>
    </message>
    <message numerus="yes">
        <source>Its %1 notes are deleted on this computer, with their earlier versions.</source>
        <translation>
            <numerusform>このコンピュータにある%1件のノートが、以前のバージョンとともに削除されます。</numerusform>
        </translation>
    </message>
    <message>
        <source>Its notes are deleted on this computer, with their earlier versions.</source>
        <translation>このコンピュータにあるノートが、以前のバージョンとともに削除されます。</translation>
    </message>
    <message>
        <source>It has no notes.</source>
        <translation>ノートはありません。</translation>
    </message>
    <message>
        <source>You can undo this for ten minutes, unless you quit Velmora.</source>
        <translation>Velmoraを終了しなければ、10分間は元に戻せます。</translation>
    </message>
    <message>
        <source>These locations keep the database, and you can import it from them: %1.</source>
        <translation>次の同期先にはデータベースが残り、そこからインポートできます: %1。</translation>
    </message>
    <message>
        <source>Your latest changes are not there yet: %1.</source>
        <translation>最新の変更がまだない同期先: %1。</translation>
    </message>
    <message>
        <source>No sync location has a copy of it. To keep one, choose “Database”, “Export…” first.</source>
        <translation>どの同期先にもコピーがありません。残しておくには、先に「データベース」の「書き出す…」を選んでください。</translation>
    </message>
    <message>
        <source>“%1”</source>
        <translation>「%1」</translation>
    </message>
    <message>
        <source>&amp;Delete</source>
        <translation>削除(&amp;D)</translation>
    </message>
    <message>
        <source>&amp;Cancel</source>
        <translation>キャンセル(&amp;C)</translation>
    </message>
</context>
<context>
    <name>Guide</name>
    <message>
        <source>The guide “%1” cannot be opened. Open it in a browser, or install Velmora again if it is missing.</source>
        <translation>ガイド「%1」を開けません。ブラウザーで開いてください。ガイドがない場合は、Velmoraをもう一度インストールしてください。</translation>
    </message>
</context>
</TS>
