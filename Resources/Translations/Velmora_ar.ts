<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ar" sourcelanguage="en_US">
<context>
    <name>ConflictBar</name>
    <message>
        <source>&amp;Compare…</source>
        <translation>مقارنة (&amp;C)…</translation>
    </message>
    <message>
        <source>Keep Th&amp;is</source>
        <translation>الاحتفاظ بهذا (&amp;I)</translation>
    </message>
    <message>
        <source>Keep &amp;Other</source>
        <translation>الاحتفاظ بالآخر (&amp;O)</translation>
    </message>
    <message>
        <source>Keep &amp;Both</source>
        <translation>الاحتفاظ بكليهما (&amp;B)</translation>
    </message>
    <message>
        <source>This note was edited on two computers.</source>
        <translation>حُرِّرت هذه الملاحظة على حاسوبين.</translation>
    </message>
    <message numerus="yes">
        <source>This note was edited in %1 places.</source>
        <translation>
            <numerusform>حُرِّرت هذه الملاحظة في %1 موضع.</numerusform>
            <numerusform>حُرِّرت هذه الملاحظة في %1 موضع.</numerusform>
            <numerusform>حُرِّرت هذه الملاحظة في %1 موضعين.</numerusform>
            <numerusform>حُرِّرت هذه الملاحظة في %1 مواضع.</numerusform>
            <numerusform>حُرِّرت هذه الملاحظة في %1 موضعًا.</numerusform>
            <numerusform>حُرِّرت هذه الملاحظة في %1 موضع.</numerusform>
        </translation>
    </message>
    <message>
        <source>This note was edited in more places than the list shows. The other edits follow when you have decided about these.</source>
        <translation>حُرِّرت هذه الملاحظة في مواضع أكثر مما تعرضه القائمة. تظهر التحريرات الأخرى بعد أن تقرر بشأن هذه.</translation>
    </message>
</context>
<context>
    <name>ConflictDialog</name>
    <message>
        <source>Compare</source>
        <translation>مقارنة</translation>
    </message>
    <message>
        <source>This Edit</source>
        <translation>هذا التعديل</translation>
    </message>
    <message>
        <source>Other Edit</source>
        <translation>التعديل الآخر</translation>
    </message>
    <message>
        <source>date unknown</source>
        <translation>التاريخ غير معروف</translation>
    </message>
    <message>
        <source>%1 (%2)</source>
        <translation>⁨%1⁩ (⁨%2⁩)</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>إغلاق (&amp;C)</translation>
    </message>
    <message>
        <source>Keep Th&amp;is</source>
        <translation>الاحتفاظ بهذا (&amp;I)</translation>
    </message>
    <message>
        <source>Keep &amp;Other</source>
        <translation>الاحتفاظ بالآخر (&amp;O)</translation>
    </message>
    <message>
        <source>Keep &amp;Both</source>
        <translation>الاحتفاظ بكليهما (&amp;B)</translation>
    </message>
</context>
<context>
    <name>DamagedProfileDialog</name>
    <message>
        <source>You can restore the backup that Velmora made of it on %1; later changes of notes are added to it if they can be read, and are otherwise missing until they are synchronized again. Or you can start with an empty profile and import your databases from the sync locations.</source>
        <translation>يمكنك استعادة النسخة الاحتياطية التي أنشأها Velmora في ⁨%1⁩؛ تُضاف إليها تغييرات الملاحظات اللاحقة إن أمكنت قراءتها، وإلا فستبقى مفقودة إلى أن تُزامَن من جديد. أو يمكنك البدء بملف تعريف فارغ واستيراد قواعد بياناتك من مواقع المزامنة.</translation>
    </message>
    <message>
        <source>There is no backup of it that can be restored. You can start with a profile that has the notes that can still be read, and import your other databases from the sync locations.</source>
        <translation>لا توجد نسخة احتياطية منه يمكن استعادتها. يمكنك البدء بملف تعريف فيه الملاحظات التي ما زالت قراءتها ممكنة، واستيراد قواعد بياناتك الأخرى من مواقع المزامنة.</translation>
    </message>
    <message>
        <source>The present files are kept in the folder “Damaged Profiles”.</source>
        <translation>تُحفظ الملفات الحالية في المجلد «Damaged Profiles».</translation>
    </message>
    <message>
        <source>Make the backups readable and start Velmora again. Or you can start with an empty profile and import your databases from the sync locations.</source>
        <translation>اجعل النسخ الاحتياطية قابلة للقراءة ثم شغِّل Velmora من جديد. أو يمكنك البدء بملف تعريف فارغ واستيراد قواعد بياناتك من مواقع المزامنة.</translation>
    </message>
    <message>
        <source>&amp;Restore the Backup of %1</source>
        <translation>استعادة النسخة الاحتياطية بتاريخ ⁨%1⁩ (&amp;R)</translation>
    </message>
    <message>
        <source>Start from the Sync &amp;Locations</source>
        <translation>البدء من مواقع المزامنة (&amp;L)</translation>
    </message>
    <message>
        <source>Show &amp;Folder</source>
        <translation>عرض المجلد (&amp;F)</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>إنهاء (&amp;Q)</translation>
    </message>
</context>
<context>
    <name>EventLog</name>
    <message>
        <source>Time</source>
        <translation>الوقت</translation>
    </message>
    <message>
        <source>What happened</source>
        <translation>ما حدث</translation>
    </message>
    <message>
        <source>Succeeded</source>
        <translation>نجاح</translation>
    </message>
    <message>
        <source>Partly</source>
        <translation>نجاح جزئي</translation>
    </message>
    <message>
        <source>Failed</source>
        <translation>فشل</translation>
    </message>
    <message>
        <source>Stopped</source>
        <translation>إيقاف</translation>
    </message>
    <message>
        <source>%1 s</source>
        <translation>⁨%1⁩ ث</translation>
    </message>
    <message>
        <source>%1 received, %2 sent</source>
        <translation>المستلَم: ⁨%1⁩، المرسَل: ⁨%2⁩</translation>
    </message>
    <message>
        <source>Result</source>
        <translation>النتيجة</translation>
    </message>
    <message>
        <source>Duration</source>
        <translation>المدة</translation>
    </message>
    <message>
        <source>Database</source>
        <translation>قاعدة البيانات</translation>
    </message>
    <message>
        <source>Location</source>
        <translation>الموقع</translation>
    </message>
    <message>
        <source>Changes</source>
        <translation>التغييرات</translation>
    </message>
</context>
<context>
    <name>HistoryDialog</name>
    <message>
        <source>&amp;Restore</source>
        <translation>استعادة (&amp;R)</translation>
    </message>
    <message>
        <source>Earlier Versions</source>
        <translation>الإصدارات السابقة</translation>
    </message>
    <message>
        <source>Deleted Notes</source>
        <translation>الملاحظات المحذوفة</translation>
    </message>
    <message>
        <source>Title</source>
        <translation>العنوان</translation>
    </message>
    <message>
        <source>When</source>
        <translation>التاريخ</translation>
    </message>
    <message>
        <source>Change</source>
        <translation>التغيير</translation>
    </message>
    <message>
        <source>Text</source>
        <translation>النص</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>إغلاق (&amp;C)</translation>
    </message>
    <message numerus="yes">
        <source> days</source>
        <translation>
            <numerusform> يوم</numerusform>
            <numerusform> يوم</numerusform>
            <numerusform> يومان</numerusform>
            <numerusform> أيام</numerusform>
            <numerusform> يومًا</numerusform>
            <numerusform> يوم</numerusform>
        </translation>
    </message>
    <message>
        <source>Number of days for which deleted notes and earlier versions are kept</source>
        <translation>عدد أيام الاحتفاظ بالملاحظات المحذوفة والإصدارات السابقة</translation>
    </message>
    <message>
        <source> MB</source>
        <translation> م.ب</translation>
    </message>
    <message>
        <source>Space for deleted notes and earlier versions</source>
        <translation>المساحة المخصصة للملاحظات المحذوفة والإصدارات السابقة</translation>
    </message>
    <message>
        <source>&amp;Keep deleted notes and earlier versions for</source>
        <translation>مدة الاحتفاظ بالملاحظات المحذوفة والإصدارات السابقة (&amp;K):</translation>
    </message>
    <message>
        <source>and up to</source>
        <translation>وبحد أقصى</translation>
    </message>
    <message numerus="yes">
        <source>The new limits remove %1 deleted notes and earlier versions.</source>
        <translation>
            <numerusform>يزيل الحدان الجديدان %1 من الملاحظات المحذوفة والإصدارات السابقة.</numerusform>
            <numerusform>يزيل الحدان الجديدان %1 ملاحظة محذوفة أو إصدارًا سابقًا.</numerusform>
            <numerusform>يزيل الحدان الجديدان %1 من الملاحظات المحذوفة والإصدارات السابقة.</numerusform>
            <numerusform>يزيل الحدان الجديدان %1 من الملاحظات المحذوفة والإصدارات السابقة.</numerusform>
            <numerusform>يزيل الحدان الجديدان %1 من الملاحظات المحذوفة والإصدارات السابقة.</numerusform>
            <numerusform>يزيل الحدان الجديدان %1 من الملاحظات المحذوفة والإصدارات السابقة.</numerusform>
        </translation>
    </message>
    <message>
        <source>What is removed cannot be restored any more. If you keep it, the limits stay as they were.</source>
        <translation>لا يمكن استعادة ما يُزال. إذا احتفظت به، يبقى الحدان كما كانا.</translation>
    </message>
    <message>
        <source>&amp;Remove</source>
        <translation>إزالة (&amp;R)</translation>
    </message>
    <message>
        <source>&amp;Keep</source>
        <translation>احتفاظ (&amp;K)</translation>
    </message>
    <message>
        <source>Untitled</source>
        <translation>بلا عنوان</translation>
    </message>
    <message>
        <source>No earlier versions of this note are kept.</source>
        <translation>لا توجد إصدارات سابقة محفوظة من هذه الملاحظة.</translation>
    </message>
    <message>
        <source>No deleted notes of “%1” are kept.</source>
        <translation>لا توجد ملاحظات محذوفة محفوظة من «⁨%1⁩».</translation>
    </message>
    <message>
        <source>A restored version replaces the note, whose present text is then kept here.</source>
        <translation>يحل الإصدار المستعاد محل الملاحظة، ويُحفظ نصها الحالي هنا.</translation>
    </message>
    <message>
        <source>Restored notes are synchronized again. They then also return on your other computers.</source>
        <translation>تُزامَن الملاحظات المستعادة من جديد، فتعود أيضًا إلى حواسيبك الأخرى.</translation>
    </message>
    <message>
        <source>Replaced on this computer</source>
        <translation>استُبدلت على هذا الحاسوب</translation>
    </message>
    <message>
        <source>Deleted on this computer</source>
        <translation>حُذفت على هذا الحاسوب</translation>
    </message>
    <message>
        <source>Replaced by a synchronization with “%1”</source>
        <translation>استُبدلت عند المزامنة مع «⁨%1⁩»</translation>
    </message>
    <message>
        <source>Deleted by a synchronization with “%1”</source>
        <translation>حُذفت عند المزامنة مع «⁨%1⁩»</translation>
    </message>
</context>
<context>
    <name>LaunchOptions</name>
    <message>
        <source>“%1” cannot be the value of “--%2”. Use one of these: %3</source>
        <translation>لا يمكن أن تكون «⁨%1⁩» قيمة «⁨--%2⁩». استخدم إحدى هذه القيم: ⁨%3⁩</translation>
    </message>
    <message>
        <source>“%1” cannot be the value of “--timeout”. Use a number of seconds greater than 0.</source>
        <translation>لا يمكن أن تكون «⁨%1⁩» قيمة «⁨--timeout⁩». استخدم عدد ثوانٍ أكبر من 0.</translation>
    </message>
    <message>
        <source>Notes and documents, synchronized with the locations you choose.</source>
        <translation>ملاحظات ومستندات تُزامَن مع المواقع التي تختارها.</translation>
    </message>
    <message>
        <source>Use the profile in DIR.</source>
        <translation>استخدام ملف التعريف الموجود في DIR.</translation>
    </message>
    <message>
        <source>Write a picture of Sync Preferences to FILE, then exit.</source>
        <translation>كتابة صورة لتفضيلات المزامنة في FILE ثم الإنهاء.</translation>
    </message>
    <message>
        <source>Print the profile's databases, locations, states and schedules as JSON, then exit.</source>
        <translation>طباعة قواعد بيانات ملف التعريف ومواقعه وحالاته وجداوله الزمنية بصيغة JSON ثم الإنهاء.</translation>
    </message>
    <message>
        <source>Use light or dark colors instead of the desktop's.</source>
        <translation>استخدام ألوان فاتحة أو داكنة بدلًا من ألوان سطح المكتب.</translation>
    </message>
    <message>
        <source>Restrict the profile to folders that you have granted access to, or not.</source>
        <translation>تقييد ملف التعريف بالمجلدات التي سمحت بالوصول إليها، أو عدم تقييده.</translation>
    </message>
    <message>
        <source>With “verify”: synchronize with every location and repair what is damaged there. Velmora must not be running with the same profile.</source>
        <translation>مع «verify»: المزامنة مع كل موقع وإصلاح التالف فيه. يجب ألا يكون Velmora قيد التشغيل بملف التعريف نفسه.</translation>
    </message>
    <message>
        <source>With “verify” and “status”: print the result as JSON.</source>
        <translation>مع «verify» و«status»: طباعة النتيجة بصيغة JSON.</translation>
    </message>
    <message>
        <source>With “sync”: if more than half of the notes of a database, and more than ten, would be removed, keep or remove them. Otherwise they are listed, and nothing is changed.</source>
        <translation>مع «sync»: إذا كان سيُزال أكثر من نصف ملاحظات قاعدة بيانات، وأكثر من عشر، فالاحتفاظ بها أو إزالتها. وإلا فتُعرض قائمة بها ولا يتغير شيء.</translation>
    </message>
    <message>
        <source>Check the profile and every sync location and print what was found, then exit with 0 if all is well, 1 if there are problems, or 2 if something could not be checked.</source>
        <translation>فحص ملف التعريف وكل مواقع المزامنة وطباعة ما وُجد، ثم الإنهاء بالرمز 0 إذا كان كل شيء سليمًا، أو 1 إذا وُجدت مشكلات، أو 2 إذا تعذر فحص شيء ما.</translation>
    </message>
    <message>
        <source>Synchronize these databases, or all, with their locations. Like the next two, this is done by Velmora if it is running. Exits with 0 if all is well, 1 if something failed, or 2 if the command could not be carried out.</source>
        <translation>مزامنة قواعد البيانات هذه، أو كلها، مع مواقعها. كما في الأمرين التاليين، يُطلب ذلك من Velmora إذا كان قيد التشغيل. رمز الإنهاء 0 إذا كان كل شيء سليمًا، أو 1 إذا فشل شيء ما، أو 2 إذا تعذر تنفيذ الأمر.</translation>
    </message>
    <message>
        <source>Print whether everything is synchronized. Exits with 1 if something is not.</source>
        <translation>طباعة ما إذا كان كل شيء متزامنًا. رمز الإنهاء 1 إذا لم يكن كذلك.</translation>
    </message>
    <message>
        <source>Check whether the location with this title or address can be read and written. Exits with 1 if it cannot.</source>
        <translation>فحص ما إذا كان الموقع ذو هذا الاسم أو العنوان قابلًا للقراءة والكتابة. رمز الإنهاء 1 إذا لم يكن كذلك.</translation>
    </message>
    <message>
        <source>With “sync”, “status” and “check”: give up after this time and exit with 3. The default is %1 for “sync” and %2 for the others.</source>
        <translation>مع «sync» و«status» و«check»: التوقف بعد هذه المدة والإنهاء بالرمز 3. المدة المبدئية ⁨%1⁩ للأمر «sync» و⁨%2⁩ للأمرين الآخرين.</translation>
    </message>
    <message>
        <source>Begin a new profile without notes or with examples, and ask no question.</source>
        <translation>بدء ملف تعريف جديد بدون ملاحظات أو مع أمثلة، دون طرح أي سؤال.</translation>
    </message>
    <message>
        <source>Open Sync Preferences, too.</source>
        <translation>فتح تفضيلات المزامنة أيضًا.</translation>
    </message>
    <message>
        <source>“--profile” needs a folder as its value.</source>
        <translation>يحتاج «--profile» إلى مجلد قيمةً له.</translation>
    </message>
    <message>
        <source>“--%1” needs one of these commands: %2</source>
        <translation>يحتاج «⁨--%1⁩» إلى أحد هذه الأوامر: ⁨%2⁩</translation>
    </message>
    <message>
        <source>“--%1” cannot be used with the command “%2”. Leave one of them out.</source>
        <translation>لا يمكن استخدام «⁨--%1⁩» مع الأمر «⁨%2⁩». احذف أحدهما.</translation>
    </message>
    <message>
        <source>“%1” is not a command. Use one of these: %2</source>
        <translation>«⁨%1⁩» ليس أمرًا. استخدم أحد هذه: ⁨%2⁩</translation>
    </message>
    <message>
        <source>The command “check” needs one argument: the title or the address of a location.</source>
        <translation>يحتاج الأمر «check» إلى وسيط واحد: اسم الموقع أو عنوانه.</translation>
    </message>
    <message>
        <source>The command “%1” has no arguments. Leave “%2” out.</source>
        <translation>ليس للأمر «⁨%1⁩» وسائط. احذف «⁨%2⁩».</translation>
    </message>
</context>
<context>
    <name>LogWindow</name>
    <message>
        <source>Log</source>
        <translation>السجل</translation>
    </message>
    <message>
        <source>Log entries</source>
        <translation>مدخلات السجل</translation>
    </message>
    <message>
        <source>All</source>
        <translation>الكل</translation>
    </message>
    <message>
        <source>&amp;Database:</source>
        <translation>قاعدة البيانات (&amp;D):</translation>
    </message>
    <message>
        <source>&amp;Location:</source>
        <translation>الموقع (&amp;L):</translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation>نسخ (&amp;C)</translation>
    </message>
    <message>
        <source>Copy the selected entries, or all if none is selected.</source>
        <translation>نسخ المدخلات المحددة، أو كلها إذا لم يُحدَّد شيء.</translation>
    </message>
</context>
<context>
    <name>MainWindow</name>
    <message>
        <source>&amp;Export…</source>
        <translation>تصدير (&amp;E)…</translation>
    </message>
    <message>
        <source>E&amp;xport Note…</source>
        <translation>تصدير الملاحظة (&amp;X)…</translation>
    </message>
    <message>
        <source>Your changes in Sync Preferences are not saved.</source>
        <translation>لم تُحفظ تغييراتك في تفضيلات المزامنة.</translation>
    </message>
    <message>
        <source>&amp;Try Again</source>
        <translation>إعادة المحاولة (&amp;T)</translation>
    </message>
    <message>
        <source>&amp;Discard</source>
        <translation>تجاهل (&amp;D)</translation>
    </message>
    <message>
        <source>&amp;Cancel</source>
        <translation>إلغاء (&amp;C)</translation>
    </message>
    <message numerus="yes">
        <source>%1 · %2 conflicts</source>
        <translation>
            <numerusform>%1 · فيها %2 تعارض</numerusform>
            <numerusform>%1 · فيها %2 تعارض</numerusform>
            <numerusform>%1 · فيها %2 تعارضان</numerusform>
            <numerusform>%1 · فيها %2 تعارضات</numerusform>
            <numerusform>%1 · فيها %2 تعارضًا</numerusform>
            <numerusform>%1 · فيها %2 تعارض</numerusform>
        </translation>
    </message>
    <message>
        <source>%1 · cannot be read</source>
        <translation>⁨%1⁩ · تتعذر قراءتها</translation>
    </message>
    <message>
        <source>%1 (closed)</source>
        <translation>⁨%1⁩ (مغلقة)</translation>
    </message>
    <message>
        <source>Databases</source>
        <translation>قواعد البيانات</translation>
    </message>
    <message>
        <source>&amp;Database</source>
        <translation>قاعدة البيانات (&amp;D)</translation>
    </message>
    <message>
        <source>&amp;New Database…</source>
        <translation>قاعدة بيانات جديدة (&amp;N)…</translation>
    </message>
    <message>
        <source>&amp;Rename…</source>
        <translation>إعادة التسمية (&amp;R)…</translation>
    </message>
    <message>
        <source>&amp;Open</source>
        <translation>فتح (&amp;O)</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>إنهاء (&amp;Q)</translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <translation>تحرير (&amp;E)</translation>
    </message>
    <message>
        <source>Earlier &amp;Versions…</source>
        <translation>الإصدارات السابقة (&amp;V)…</translation>
    </message>
    <message>
        <source>&amp;Deleted Notes…</source>
        <translation>الملاحظات المحذوفة (&amp;D)…</translation>
    </message>
    <message>
        <source>&amp;Tools</source>
        <translation>أدوات (&amp;T)</translation>
    </message>
    <message>
        <source>Sync &amp;Preferences…</source>
        <translation>تفضيلات المزامنة (&amp;P)…</translation>
    </message>
    <message>
        <source>&amp;Log</source>
        <translation>السجل (&amp;L)</translation>
    </message>
    <message>
        <source>Commands</source>
        <translation>الأوامر</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>إغلاق (&amp;C)</translation>
    </message>
    <message>
        <source>New Database</source>
        <translation>قاعدة بيانات جديدة</translation>
    </message>
    <message>
        <source>Name of the new database:</source>
        <translation>اسم قاعدة البيانات الجديدة:</translation>
    </message>
    <message>
        <source>Rename</source>
        <translation>إعادة التسمية</translation>
    </message>
    <message>
        <source>New name of the database:</source>
        <translation>الاسم الجديد لقاعدة البيانات:</translation>
    </message>
    <message>
        <source>The text of “%1”, which could not be saved before, is saved.</source>
        <translation>حُفظ نص «⁨%1⁩» الذي تعذر حفظه سابقًا.</translation>
    </message>
    <message>
        <source>&amp;Delete…</source>
        <translation>حذف (&amp;D)…</translation>
    </message>
    <message>
        <source>Res&amp;tore Deleted Database</source>
        <translation>استعادة قاعدة البيانات المحذوفة (&amp;T)</translation>
    </message>
    <message>
        <source>The inbox cannot be deleted, because every profile has one. You can delete its notes.</source>
        <translation>لا يمكن حذف الوارد لأن لكل ملف تعريف واردًا واحدًا. يمكنك حذف ملاحظاته.</translation>
    </message>
    <message>
        <source>“%1” was deleted. For ten minutes it can be restored with its notes, ticks and schedules.</source>
        <translation>حُذفت «⁨%1⁩». يمكن استعادتها خلال عشر دقائق مع ملاحظاتها وعلاماتها وجداولها الزمنية.</translation>
    </message>
    <message>
        <source>&amp;Guide</source>
        <translation>الدليل (&amp;G)</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>مساعدة (&amp;H)</translation>
    </message>
    <message>
        <source>&amp;About Velmora</source>
        <translation>حول Velmora (&amp;A)</translation>
    </message>
    <message>
        <source>Notes that are kept in sync between your computers.

License: Apache License 2.0</source>
        <translation>ملاحظات تُزامَن بين حواسيبك.

الرخصة: Apache License 2.0</translation>
    </message>
    <message>
        <source>&amp;Sync Now</source>
        <translation>المزامنة الآن (&amp;S)</translation>
    </message>
    <message>
        <source>“%1” is not synchronized with any location. Tick one in Sync Preferences.</source>
        <translation>لا تتم مزامنة «⁨%1⁩» مع أي موقع. علِّم موقعًا في تفضيلات المزامنة.</translation>
    </message>
</context>
<context>
    <name>NotesModel</name>
    <message>
        <source>Untitled</source>
        <translation>بلا عنوان</translation>
    </message>
</context>
<context>
    <name>NotesView</name>
    <message>
        <source>A title has at most %L1 characters, so not all of what you entered was added to it. Enter it into the text of the note.</source>
        <translation>لا يتجاوز طول العنوان %L1 من المحارف، لذلك لم يُضف إليه كل ما أدخلته. أدخل الباقي في نص الملاحظة.</translation>
    </message>
    <message>
        <source>The text was not inserted, because the note would be too long to be edited: it may have %L1 lines of at most %L2 characters, and %L3 characters in all. Insert a part of it, or several lines.</source>
        <translation>لم يُدرج النص، لأن الملاحظة ستصبح أطول من أن تُحرر: يمكن أن تضم %L1 من الأسطر، في كل سطر %L2 من المحارف على الأكثر، و%L3 من المحارف إجمالًا. أدرج جزءًا منه، أو وزّعه على عدة أسطر.</translation>
    </message>
    <message>
        <source>New &amp;Note</source>
        <translation>ملاحظة جديدة (&amp;N)</translation>
    </message>
    <message>
        <source>De&amp;lete Note</source>
        <translation>حذف الملاحظة (&amp;L)</translation>
    </message>
    <message>
        <source>&amp;Undo Delete Note</source>
        <translation>تراجع عن حذف الملاحظة (&amp;U)</translation>
    </message>
    <message>
        <source>&amp;Undo Keep</source>
        <translation>تراجع عن الاحتفاظ (&amp;U)</translation>
    </message>
    <message>
        <source>Notes</source>
        <translation>الملاحظات</translation>
    </message>
    <message>
        <source>Title</source>
        <translation>العنوان</translation>
    </message>
    <message>
        <source>Text</source>
        <translation>النص</translation>
    </message>
    <message>
        <source>This note cannot be edited here: it contains something that the editor would change, or too many or too long lines. To go on with it, copy its text and paste it into a new note.</source>
        <translation>لا يمكن تحرير هذه الملاحظة هنا: فيها ما سيغيّره المحرِّر، أو أسطر كثيرة جدًا أو طويلة جدًا. لمتابعة العمل عليها، انسخ نصها وألصقه في ملاحظة جديدة.</translation>
    </message>
    <message>
        <source>This note is not saved: %1</source>
        <translation>لم تُحفظ هذه الملاحظة: ⁨%1⁩</translation>
    </message>
    <message>
        <source>New Note</source>
        <translation>ملاحظة جديدة</translation>
    </message>
    <message>
        <source>Cop&amp;y Text</source>
        <translation>نسخ النص (&amp;Y)</translation>
    </message>
    <message>
        <source>Try A&amp;gain</source>
        <translation>إعادة المحاولة (&amp;G)</translation>
    </message>
    <message>
        <source>Not all notes are shown, because some cannot be read. %1</source>
        <translation>لا تظهر كل الملاحظات، لأن بعضها لا يمكن قراءته. ⁨%1⁩</translation>
    </message>
</context>
<context>
    <name>PlugIns</name>
    <message>
        <source>A part of Velmora cannot be loaded: %1. Install Velmora again.</source>
        <translation>تعذر تحميل جزء من Velmora: ⁨%1⁩. أعد تثبيت Velmora.</translation>
    </message>
</context>
<context>
    <name>PreferencesWindow</name>
    <message>
        <source>“%1” was removed. Its ticks and schedules can be restored with it.</source>
        <translation>أُزيل «⁨%1⁩». يمكن استعادته مع علاماته وجداوله الزمنية.</translation>
    </message>
    <message>
        <source>Sync Preferences</source>
        <translation>تفضيلات المزامنة</translation>
    </message>
</context>
<context>
    <name>RemovalDialog</name>
    <message numerus="yes">
        <source>The synchronization with “%1” would remove %2 of the %3 notes in “%4”.</source>
        <translation>
            <numerusform>ستزيل المزامنة مع «⁨%1⁩» عدد %2 من ملاحظات «⁨%4⁩»، وعددها %3.</numerusform>
            <numerusform>ستزيل المزامنة مع «⁨%1⁩» عدد %2 من ملاحظات «⁨%4⁩»، وعددها %3.</numerusform>
            <numerusform>ستزيل المزامنة مع «⁨%1⁩» عدد %2 من ملاحظات «⁨%4⁩»، وعددها %3.</numerusform>
            <numerusform>ستزيل المزامنة مع «⁨%1⁩» عدد %2 من ملاحظات «⁨%4⁩»، وعددها %3.</numerusform>
            <numerusform>ستزيل المزامنة مع «⁨%1⁩» عدد %2 من ملاحظات «⁨%4⁩»، وعددها %3.</numerusform>
            <numerusform>ستزيل المزامنة مع «⁨%1⁩» عدد %2 من ملاحظات «⁨%4⁩»، وعددها %3.</numerusform>
        </translation>
    </message>
    <message>
        <source>Nothing has been changed yet. “velmora sync --removals keep” keeps these notes, also on your other computers; “--removals remove” removes them.</source>
        <translation>لم يتغير شيء بعد. يحتفظ «velmora sync --removals keep» بهذه الملاحظات، وعلى حواسيبك الأخرى أيضًا؛ أما «--removals remove» فيزيلها.</translation>
    </message>
    <message>
        <source>Notes that would be removed</source>
        <translation>الملاحظات التي ستُزال</translation>
    </message>
    <message>
        <source>Untitled</source>
        <translation>بلا عنوان</translation>
    </message>
    <message numerus="yes">
        <source>… and %1 more</source>
        <translation>
            <numerusform>… و%1 أخرى</numerusform>
            <numerusform>… و%1 أخرى</numerusform>
            <numerusform>… و%1 أخريان</numerusform>
            <numerusform>… و%1 أخرى</numerusform>
            <numerusform>… و%1 أخرى</numerusform>
            <numerusform>… و%1 أخرى</numerusform>
        </translation>
    </message>
    <message>
        <source>&amp;Keep the Notes</source>
        <translation>احتفاظ بالملاحظات (&amp;K)</translation>
    </message>
    <message>
        <source>&amp;Remove Them</source>
        <translation>إزالتها (&amp;R)</translation>
    </message>
    <message>
        <source>Decide &amp;Later</source>
        <translation>اتخاذ القرار لاحقًا (&amp;L)</translation>
    </message>
    <message>
        <source>Nothing has been changed yet. If you keep the notes, they also return on your other computers. If you remove them, you find them in “Deleted Notes” for a while.</source>
        <translation>لم يتغير شيء بعد. إذا احتفظت بالملاحظات، فستعود أيضًا إلى حواسيبك الأخرى. وإذا أزلتها، فستجدها لبعض الوقت في «الملاحظات المحذوفة».</translation>
    </message>
</context>
<context>
    <name>UnsavedTextDialog</name>
    <message>
        <source>Your text is not saved.</source>
        <translation>لم يُحفظ نصك.</translation>
    </message>
    <message>
        <source>&amp;Try Again</source>
        <translation>إعادة المحاولة (&amp;T)</translation>
    </message>
    <message>
        <source>&amp;Discard</source>
        <translation>تجاهل (&amp;D)</translation>
    </message>
    <message>
        <source>&amp;Copy Text</source>
        <translation>نسخ النص (&amp;C)</translation>
    </message>
    <message>
        <source>&amp;Keep Editing</source>
        <translation>متابعة التحرير (&amp;K)</translation>
    </message>
</context>
<context>
    <name>UnsavedTexts</name>
    <message>
        <source>The folder “%1”, which may contain texts that were not saved, cannot be read.</source>
        <translation>تتعذر قراءة المجلد «⁨%1⁩» الذي قد يحتوي على نصوص لم تُحفظ.</translation>
    </message>
    <message>
        <source>Check its permissions and its disk, and start Velmora again.</source>
        <translation>تحقق من أذوناته ومن القرص، ثم شغِّل Velmora من جديد.</translation>
    </message>
    <message>
        <source>The file is damaged. Copy from it what you need, and remove it.</source>
        <translation>الملف تالف. انسخ منه ما تحتاج إليه ثم أزله.</translation>
    </message>
    <message>
        <source>The text of “%1” cannot be kept for the next start either.</source>
        <translation>يتعذر أيضًا الاحتفاظ بنص «⁨%1⁩» حتى التشغيل التالي.</translation>
    </message>
    <message>
        <source>Make room on the disk, or copy the text.</source>
        <translation>أفرغ مساحة على القرص أو انسخ النص.</translation>
    </message>
    <message>
        <source>“%1”: %2</source>
        <translation>«⁨%1⁩»: ⁨%2⁩</translation>
    </message>
    <message>
        <source>Texts that were not saved cannot be restored. They are kept, and Velmora tries again at each start.</source>
        <translation>تتعذر استعادة النصوص التي لم تُحفظ. يُحتفظ بها، ويعيد Velmora المحاولة عند كل تشغيل.</translation>
    </message>
    <message>
        <source>The file “%1”, which contains a text that was not saved, cannot be removed: %2. Remove it yourself, or the text returns at the next start.</source>
        <translation>تتعذر إزالة الملف «⁨%1⁩» الذي يحتوي على نص لم يُحفظ: %2. أزله بنفسك، وإلا عاد النص عند بدء التشغيل التالي.</translation>
    </message>
    <message>
        <source>The file cannot be read (%1). Check its permissions and its disk.</source>
        <translation>لا يمكن قراءة الملف (⁨%1⁩). تحقق من أذوناته ومن قرصه.</translation>
    </message>
</context>
<context>
    <name>VelmoraApplication</name>
    <message>
        <source>Error again:</source>
        <translation>تكرر الخطأ:</translation>
    </message>
    <message>
        <source>Internal error:</source>
        <translation>خطأ داخلي:</translation>
    </message>
    <message>
        <source>An internal error occurred, and Velmora cancelled the current action.</source>
        <translation>حدث خطأ داخلي، فألغى Velmora الإجراء الحالي.</translation>
    </message>
    <message>
        <source>A synchronization would remove many notes.</source>
        <translation>ستزيل مزامنةٌ ملاحظات كثيرة.</translation>
    </message>
</context>
<context>
    <name>VerificationOutput</name>
    <message>
        <source>%1: no problems (%2).</source>
        <translation>⁨%1⁩: لا توجد مشكلات (⁨%2⁩).</translation>
    </message>
    <message>
        <source>%1: problems were found (%2).</source>
        <translation>⁨%1⁩: وُجدت مشكلات (⁨%2⁩).</translation>
    </message>
    <message>
        <source>%1: could not be checked.</source>
        <translation>⁨%1⁩: تعذر الفحص.</translation>
    </message>
    <message>
        <source>Everything is in order.</source>
        <translation>كل شيء سليم.</translation>
    </message>
    <message>
        <source>Problems were found. “velmora verify --repair” synchronizes and repairs what this computer can repair.</source>
        <translation>وُجدت مشكلات. يزامن الأمر «velmora verify --repair» ويصلح ما يستطيع هذا الحاسوب إصلاحه.</translation>
    </message>
    <message>
        <source>Problems remain. Do what is said above, then run “velmora verify” again.</source>
        <translation>ما زالت هناك مشكلات. افعل ما ذُكر أعلاه، ثم شغِّل «velmora verify» من جديد.</translation>
    </message>
    <message>
        <source>Some parts could not be checked. Remove the cause that is named above, then try again.</source>
        <translation>تعذر فحص بعض الأجزاء. أزل السبب المذكور أعلاه، ثم أعد المحاولة.</translation>
    </message>
</context>
<context>
    <name>ProcessProtection</name>
    <message>
        <source>Other programs of yours may be able to read passwords in the memory of Velmora, because the system did not let it protect its memory. Run no programs that you do not trust beside Velmora.</source>
        <translation>قد تتمكن برامجك الأخرى من قراءة كلمات المرور في ذاكرة Velmora، لأن النظام لم يسمح له بحماية ذاكرته. لا تشغِّل إلى جانب Velmora برامج لا تثق بها.</translation>
    </message>
</context>
<context>
    <name>RunningInstance</name>
    <message>
        <source>A second start of Velmora will not find these windows: %1 cannot be used (%2). Check the permissions and the space of its folder, then start Velmora again.</source>
        <translation>لن يجد التشغيل الثاني لـ Velmora هذه النوافذ: يتعذر استخدام ⁨%1⁩ (⁨%2⁩). تحقق من أذونات مجلده ومساحته، ثم شغِّل Velmora من جديد.</translation>
    </message>
    <message>
        <source>Velmora has ended before the command was completed. Try again.</source>
        <translation>انتهى Velmora قبل اكتمال الأمر. أعد المحاولة.</translation>
    </message>
    <message>
        <source>Velmora, which is running, has another version. Quit it, then try again.</source>
        <translation>Velmora قيد التشغيل بإصدار آخر. أنهِه، ثم أعد المحاولة.</translation>
    </message>
    <message>
        <source>Velmora, which is running, takes too long and continues with the command. Try again later, or state a longer time with --timeout.</source>
        <translation>يستغرق Velmora الذي هو قيد التشغيل وقتًا طويلًا، ويواصل تنفيذ الأمر. أعد المحاولة لاحقًا، أو حدِّد مدة أطول باستخدام --timeout.</translation>
    </message>
</context>
<context>
    <name>main</name>
    <message>
        <source>The picture cannot be written to %1. Check the folder and its permissions, or choose another file.</source>
        <translation>تعذرت كتابة الصورة في ⁨%1⁩. تحقق من المجلد وأذوناته، أو اختر ملفًا آخر.</translation>
    </message>
    <message>
        <source>There is no display to open a window on. A picture of Sync Preferences is in this file:</source>
        <translation>لا توجد شاشة لفتح نافذة عليها. توجد صورة لتفضيلات المزامنة في هذا الملف:</translation>
    </message>
</context>
<context>
    <name>SynchronizationSummary</name>
    <message>
        <source>%1 · next: %2</source>
        <translation>⁨%1⁩ · التالية: ⁨%2⁩</translation>
    </message>
    <message>
        <source>Nothing is synchronized: no database has a ticked location</source>
        <translation>لا يُزامَن شيء: ليس لأي قاعدة بيانات موقع معلَّم</translation>
    </message>
    <message>
        <source>All up to date</source>
        <translation>كل شيء محدَّث</translation>
    </message>
    <message>
        <source>“%1” has not been synchronized with “%2” yet</source>
        <translation>لم تُزامَن «⁨%1⁩» مع «⁨%2⁩» بعد</translation>
    </message>
    <message>
        <source>“%1” has changes that are not synchronized with “%2” yet</source>
        <translation>في «⁨%1⁩» تغييرات لم تُزامَن مع «⁨%2⁩» بعد</translation>
    </message>
    <message>
        <source>There are changes that are not synchronized yet</source>
        <translation>توجد تغييرات لم تُزامَن بعد</translation>
    </message>
    <message numerus="yes">
        <source>%1 of %2 synchronizations failed</source>
        <translation>
            <numerusform>عدد المزامنات التي فشلت: %1 من %2</numerusform>
            <numerusform>عدد المزامنات التي فشلت: %1 من %2</numerusform>
            <numerusform>عدد المزامنات التي فشلت: %1 من %2</numerusform>
            <numerusform>عدد المزامنات التي فشلت: %1 من %2</numerusform>
            <numerusform>عدد المزامنات التي فشلت: %1 من %2</numerusform>
            <numerusform>عدد المزامنات التي فشلت: %1 من %2</numerusform>
        </translation>
    </message>
    <message>
        <source>“%1” is not synchronized with “%2”</source>
        <translation>«⁨%1⁩» غير متزامنة مع «⁨%2⁩»</translation>
    </message>
    <message>
        <source>Some items of “%1” could not be synchronized with “%2”</source>
        <translation>تعذرت مزامنة بعض عناصر «⁨%1⁩» مع «⁨%2⁩»</translation>
    </message>
    <message numerus="yes">
        <source>Some items failed in %1 of %2 synchronizations</source>
        <translation>
            <numerusform>عدد المزامنات التي فشلت فيها بعض العناصر: %1 من %2</numerusform>
            <numerusform>عدد المزامنات التي فشلت فيها بعض العناصر: %1 من %2</numerusform>
            <numerusform>عدد المزامنات التي فشلت فيها بعض العناصر: %1 من %2</numerusform>
            <numerusform>عدد المزامنات التي فشلت فيها بعض العناصر: %1 من %2</numerusform>
            <numerusform>عدد المزامنات التي فشلت فيها بعض العناصر: %1 من %2</numerusform>
            <numerusform>عدد المزامنات التي فشلت فيها بعض العناصر: %1 من %2</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>SynchronizationMonitor</name>
    <message>
        <source>%1 %2 of %3</source>
        <translation>⁨%1⁩ تم ⁨%2⁩ من ⁨%3⁩</translation>
    </message>
</context>
<context>
    <name>StatusLine</name>
    <message>
        <source>&amp;Stop</source>
        <translation>إيقاف (&amp;S)</translation>
    </message>
    <message>
        <source>&amp;What Failed…</source>
        <translation>عرض ما فشل (&amp;W)…</translation>
    </message>
    <message>
        <source>Progress of the synchronization</source>
        <translation>تقدم المزامنة</translation>
    </message>
    <message>
        <source>Stop all synchronizations. The next one continues where they stopped.</source>
        <translation>إيقاف كل المزامنات. تبدأ المزامنة التالية من حيث توقفت.</translation>
    </message>
</context>
<context>
    <name>QuitSynchronization</name>
    <message>
        <source>“%1” with “%2”</source>
        <translation>«⁨%1⁩» مع «⁨%2⁩»</translation>
    </message>
    <message>
        <source>Quit Velmora</source>
        <translation>إنهاء Velmora</translation>
    </message>
    <message>
        <source>“%1” has changes that are not synchronized with “%2”. Synchronize them before quitting?</source>
        <translation>في «⁨%1⁩» تغييرات لم تُزامَن مع «⁨%2⁩». هل تريد مزامنتها قبل الإنهاء؟</translation>
    </message>
    <message>
        <source>There are changes that are not synchronized. Synchronize them before quitting?</source>
        <translation>توجد تغييرات لم تُزامَن. هل تريد مزامنتها قبل الإنهاء؟</translation>
    </message>
    <message numerus="yes">
        <source>and %1 more</source>
        <translation>
            <numerusform>و%1 أخرى</numerusform>
            <numerusform>و%1 أخرى</numerusform>
            <numerusform>و%1 أخريان</numerusform>
            <numerusform>و%1 أخرى</numerusform>
            <numerusform>و%1 أخرى</numerusform>
            <numerusform>و%1 أخرى</numerusform>
        </translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>إنهاء (&amp;Q)</translation>
    </message>
    <message>
        <source>&amp;Synchronize and Quit</source>
        <translation>المزامنة والإنهاء (&amp;S)</translation>
    </message>
    <message>
        <source>Some changes could not be synchronized. They are saved on this computer. Quit anyway?</source>
        <translation>تعذرت مزامنة بعض التغييرات. وهي محفوظة على هذا الحاسوب. هل تريد الإنهاء رغم ذلك؟</translation>
    </message>
</context>
<context>
    <name>QuitProgressDialog</name>
    <message>
        <source>Quit Velmora</source>
        <translation>إنهاء Velmora</translation>
    </message>
    <message>
        <source>Progress of the synchronization</source>
        <translation>تقدم المزامنة</translation>
    </message>
    <message>
        <source>&amp;Quit Now</source>
        <translation>إنهاء الآن (&amp;Q)</translation>
    </message>
    <message>
        <source>Stop the synchronization and quit. The next one continues where it stopped.</source>
        <translation>إيقاف المزامنة والإنهاء. تبدأ المزامنة التالية من حيث توقفت.</translation>
    </message>
    <message>
        <source>Synchronizing before quitting…</source>
        <translation>تجري المزامنة قبل الإنهاء…</translation>
    </message>
</context>
<context>
    <name>ErrorBoxes</name>
    <message>
        <source>Close</source>
        <translation>إغلاق</translation>
    </message>
    <message>
        <source>Error %1 of %2</source>
        <translation>الخطأ ⁨%1⁩ من ⁨%2⁩</translation>
    </message>
</context>
<context>
    <name>LogFile</name>
    <message>
        <source>The log cannot be saved in the file “%1” (%2). Check its permissions and the space on its disk.</source>
        <translation>تعذر حفظ السجل في الملف «⁨%1⁩» (⁨%2⁩). تحقق من أذوناته ومن المساحة على القرص.</translation>
    </message>
    <message>
        <source>Lines of the log file “%1” that cannot be read and are not shown: %2. Check its disk.</source>
        <translation>عدد أسطر ملف السجل «⁨%1⁩» التي تتعذر قراءتها ولا تُعرض: ⁨%2⁩. تحقق من قرصه.</translation>
    </message>
</context>
<context>
    <name>ShellCommandLine</name>
    <message>
        <source>There is no profile in the folder “%1”. State another one with --profile.</source>
        <translation>لا يوجد ملف تعريف في المجلد «⁨%1⁩». حدِّد مجلدًا آخر باستخدام --profile.</translation>
    </message>
    <message>
        <source>The command takes longer than the allowed %1 s and was stopped. Try again, or state a longer time with --timeout.</source>
        <translation>تجاوز الأمر المدة المسموحة ⁨%1⁩ ث فأُوقف. أعد المحاولة، أو حدِّد مدة أطول باستخدام --timeout.</translation>
    </message>
</context>
<context>
    <name>ShellCommandRunner</name>
    <message>
        <source>“%1” with “%2”</source>
        <translation>«⁨%1⁩» مع «⁨%2⁩»</translation>
    </message>
    <message>
        <source>never synchronized</source>
        <translation>لم تُزامَن قط</translation>
    </message>
    <message>
        <source>has changes since %1</source>
        <translation>فيها تغييرات منذ ⁨%1⁩</translation>
    </message>
    <message>
        <source>up to date since %1</source>
        <translation>محدَّثة منذ ⁨%1⁩</translation>
    </message>
    <message>
        <source>%1: the synchronization was stopped.</source>
        <translation>⁨%1⁩: أُوقفت المزامنة.</translation>
    </message>
    <message>
        <source>%1: synchronized (%2 received, %3 sent)</source>
        <translation>⁨%1⁩: تمت المزامنة (المستلَم: ⁨%2⁩، المرسَل: ⁨%3⁩)</translation>
    </message>
    <message>
        <source>There is no database “%1”. “velmora --describe” lists all.</source>
        <translation>لا توجد قاعدة بيانات «⁨%1⁩». يعرض «velmora --describe» قواعد البيانات كلها.</translation>
    </message>
    <message>
        <source>Nothing is synchronized. Tick a location in Sync Preferences first.</source>
        <translation>لا يُزامَن شيء. علِّم موقعًا في تفضيلات المزامنة أولًا.</translation>
    </message>
    <message>
        <source>There is no location “%1”. State the title or address of one of these:</source>
        <translation>لا يوجد موقع «⁨%1⁩». حدِّد اسم أحد هذه المواقع أو عنوانه:</translation>
    </message>
    <message>
        <source>Notes of “%1” that “%2” would have removed and that were kept (%3 of %4):</source>
        <translation>ملاحظات «⁨%1⁩» التي كان «⁨%2⁩» سيزيلها واحتُفظ بها (%3 من %4):</translation>
    </message>
    <message>
        <source>Notes of “%1” that “%2” has removed (%3 of %4; “Deleted Notes” in the menu “Edit” restores them):</source>
        <translation>ملاحظات «⁨%1⁩» التي أزالها «⁨%2⁩» (%3 من %4؛ يستعيدها «الملاحظات المحذوفة» في القائمة «تحرير»):</translation>
    </message>
</context>
<context>
    <name>TrayIcon</name>
    <message>
        <source>&amp;Sync All Now</source>
        <translation>مزامنة الكل الآن (&amp;S)</translation>
    </message>
    <message>
        <source>&amp;Pause for an Hour</source>
        <translation>إيقاف مؤقت لمدة ساعة (&amp;P)</translation>
    </message>
    <message>
        <source>Pause until &amp;Tomorrow</source>
        <translation>إيقاف مؤقت حتى الغد (&amp;T)</translation>
    </message>
    <message>
        <source>&amp;Resume</source>
        <translation>استئناف (&amp;R)</translation>
    </message>
    <message>
        <source>Show &amp;Velmora</source>
        <translation>عرض Velmora (&amp;V)</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>إنهاء (&amp;Q)</translation>
    </message>
    <message>
        <source>Paused</source>
        <translation>متوقفة مؤقتًا</translation>
    </message>
</context>
<context>
    <name>BackgroundMode</name>
    <message>
        <source>Keep Synchronizing in the &amp;Background</source>
        <translation>متابعة المزامنة في الخلفية (&amp;B)</translation>
    </message>
    <message>
        <source>Velmora cannot stay in the background, because this desktop shows no icons of programs. Turn them on in the desktop's settings and try again.</source>
        <translation>لا يمكن أن يبقى Velmora في الخلفية، لأن سطح المكتب هذا لا يعرض أيقونات البرامج. فعِّلها في إعدادات سطح المكتب وأعد المحاولة.</translation>
    </message>
    <message>
        <source>A synchronization failed</source>
        <translation>فشلت مزامنة</translation>
    </message>
    <message>
        <source>Velmora asks for a decision</source>
        <translation>يطلب Velmora قرارًا منك</translation>
    </message>
    <message>
        <source>A note was edited on two computers</source>
        <translation>حُرِّرت ملاحظة على حاسوبين</translation>
    </message>
    <message>
        <source>Velmora has kept both edits. Open the note to choose one.</source>
        <translation>احتفظ Velmora بالتعديلين. افتح الملاحظة لاختيار أحدهما.</translation>
    </message>
    <message>
        <source>&amp;Hide Window</source>
        <translation>إخفاء النافذة (&amp;H)</translation>
    </message>
    <message>
        <source>Velmora cannot stay in the background at present, because the desktop shows no icons of programs. It ends when its window is closed. Turn the icons on in the desktop's settings, and start Velmora again.</source>
        <translation>لا يمكن أن يبقى Velmora في الخلفية حاليًا، لأن سطح المكتب لا يعرض أيقونات البرامج. وسينتهي عند إغلاق نافذته. فعِّل الأيقونات في إعدادات سطح المكتب، ثم شغِّل Velmora من جديد.</translation>
    </message>
    <message>
        <source>Do Not Stay in the Background</source>
        <translation>عدم البقاء في الخلفية</translation>
    </message>
</context>
<context>
    <name>FailureSteps</name>
    <message>
        <source>Edit Location…</source>
        <translation>تحرير الموقع…</translation>
    </message>
    <message>
        <source>Try Again</source>
        <translation>إعادة المحاولة</translation>
    </message>
    <message>
        <source>Show Folder</source>
        <translation>عرض المجلد</translation>
    </message>
</context>
<context>
    <name>QGuiApplication</name>
    <message>
        <source>QT_LAYOUT_DIRECTION</source>
        <translatorcomment>The windows are laid out from right to left, also without Qt's own table.</translatorcomment>
        <translation>RTL</translation>
    </message>
</context>
<context>
    <name>NoteExport</name>
    <message>
        <source>The file “%1” could not be written. Choose another folder.</source>
        <translation>تعذرت كتابة الملف «⁨%1⁩». اختر مجلدًا آخر.</translation>
    </message>
    <message>
        <source>Export</source>
        <translation>تصدير</translation>
    </message>
    <message>
        <source>Notes</source>
        <translation>الملاحظات</translation>
    </message>
</context>
<context>
    <name>FirstStartDialog</name>
    <message>
        <source>Start</source>
        <translation>بدء</translation>
    </message>
    <message>
        <source>Welcome to Velmora</source>
        <translation>مرحبًا بك في Velmora</translation>
    </message>
    <message>
        <source>You can change this later in Sync Preferences.</source>
        <translation>يمكنك تغيير هذا لاحقًا في تفضيلات المزامنة.</translation>
    </message>
    <message>
        <source>Where should your notes be kept in sync?</source>
        <translation>أين تريد مزامنة ملاحظاتك؟</translation>
    </message>
    <message>
        <source>Decide later</source>
        <translation>اتخاذ القرار لاحقًا</translation>
    </message>
    <message>
        <source>How do you want to begin?</source>
        <translation>كيف تريد أن تبدأ؟</translation>
    </message>
    <message>
        <source>Without notes</source>
        <translation>بدون ملاحظات</translation>
    </message>
    <message>
        <source>With examples</source>
        <translation>مع أمثلة</translation>
    </message>
    <message>
        <source>With databases from another computer</source>
        <translation>مع قواعد بيانات من حاسوب آخر</translation>
    </message>
    <message>
        <source>Choose first where these databases are.</source>
        <translation>اختر أولًا مكان قواعد البيانات هذه.</translation>
    </message>
</context>
<context>
    <name>UndoBar</name>
    <message>
        <source>&amp;Undo</source>
        <translation>تراجع (&amp;U)</translation>
    </message>
</context>
<context>
    <name>DeletionQuestion</name>
    <message>
        <source>Delete the database “%1”?</source>
        <translation>هل تريد حذف قاعدة البيانات «⁨%1⁩»؟</translation>
    </message>
    <message numerus="yes">
        <source>Its %1 notes are deleted on this computer, with their earlier versions.</source>
        <translation>
            <numerusform>ستُحذف من هذا الكمبيوتر ملاحظاتها وعددها %1 مع إصداراتها السابقة.</numerusform>
            <numerusform>ستُحذف من هذا الكمبيوتر ملاحظاتها وعددها %1 مع إصداراتها السابقة.</numerusform>
            <numerusform>ستُحذف من هذا الكمبيوتر ملاحظاتها وعددها %1 مع إصداراتها السابقة.</numerusform>
            <numerusform>ستُحذف من هذا الكمبيوتر ملاحظاتها وعددها %1 مع إصداراتها السابقة.</numerusform>
            <numerusform>ستُحذف من هذا الكمبيوتر ملاحظاتها وعددها %1 مع إصداراتها السابقة.</numerusform>
            <numerusform>ستُحذف من هذا الكمبيوتر ملاحظاتها وعددها %1 مع إصداراتها السابقة.</numerusform>
        </translation>
    </message>
    <message>
        <source>Its notes are deleted on this computer, with their earlier versions.</source>
        <translation>ستُحذف ملاحظاتها من هذا الكمبيوتر مع إصداراتها السابقة.</translation>
    </message>
    <message>
        <source>It has no notes.</source>
        <translation>لا تحتوي على ملاحظات.</translation>
    </message>
    <message>
        <source>You can undo this for ten minutes, unless you quit Velmora.</source>
        <translation>يمكنك التراجع عن ذلك خلال عشر دقائق ما لم تُنهِ Velmora.</translation>
    </message>
    <message>
        <source>These locations keep the database, and you can import it from them: %1.</source>
        <translation>تحتفظ هذه المواقع بقاعدة البيانات ويمكنك استيرادها منها: ⁨%1⁩.</translation>
    </message>
    <message>
        <source>Your latest changes are not there yet: %1.</source>
        <translation>تغييراتك الأخيرة ليست هناك بعد: ⁨%1⁩.</translation>
    </message>
    <message>
        <source>No sync location has a copy of it. To keep one, choose “Database”, “Export…” first.</source>
        <translation>لا توجد نسخة منها في أي موقع مزامنة. للاحتفاظ بنسخة، اختر أولًا «قاعدة البيانات» ثم «تصدير…».</translation>
    </message>
    <message>
        <source>“%1”</source>
        <translation>«⁨%1⁩»</translation>
    </message>
    <message>
        <source>&amp;Delete</source>
        <translation>حذف (&amp;D)</translation>
    </message>
    <message>
        <source>&amp;Cancel</source>
        <translation>إلغاء (&amp;C)</translation>
    </message>
</context>
<context>
    <name>Guide</name>
    <message>
        <source>The guide “%1” cannot be opened. Open it in a browser, or install Velmora again if it is missing.</source>
        <translation>تعذر فتح الدليل «⁨%1⁩». افتحه في متصفح، أو أعد تثبيت Velmora إذا كان مفقودًا.</translation>
    </message>
</context>
</TS>
