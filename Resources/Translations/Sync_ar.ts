<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ar" sourcelanguage="en_US">
<context>
    <name>Sync</name>
    <message>
        <source>Other computers do not find this one by themselves, because the service “Avahi” is not running on this computer. Start it, or enter this address and port on the other computer under “Add”, “Direct Connection…”.</source>
        <translation>لا تعثر الحواسيب الأخرى على هذا الحاسوب من تلقاء نفسها، لأن الخدمة «Avahi» لا تعمل عليه. شغِّلها، أو أدخل هذا العنوان وهذا المنفذ على الحاسوب الآخر ضمن «إضافة»، «اتصال مباشر…».</translation>
    </message>
    <message>
        <source>“%1” was not revoked and may still connect. %2 Start the password service, and revoke it again.</source>
        <translation>لم يُسحب الإذن من «⁨%1⁩» وما زال يستطيع الاتصال. ⁨%2⁩ شغِّل خدمة كلمات المرور، ثم اسحب الإذن من جديد.</translation>
    </message>
    <message>
        <source>Your changes to the sync locations could not be saved, and the reason is not known. Check the space on the disk, and try again.</source>
        <translation>تعذر حفظ تغييراتك في مواقع المزامنة، والسبب غير معروف. تحقق من المساحة على القرص، ثم أعد المحاولة.</translation>
    </message>
    <message>
        <source>The computers that may connect cannot be listed. %1 Start or unlock the password service, and open this window again.</source>
        <translation>لا يمكن عرض الحواسيب المسموح لها بالاتصال. ⁨%1⁩ شغِّل خدمة كلمات المرور أو ألغِ قفلها، ثم افتح هذه النافذة من جديد.</translation>
    </message>
    <message>
        <source>Computers cannot be found, because the service “Avahi” is not running on this computer. Start it, or enter the address of the other computer.</source>
        <translation>لا يمكن العثور على حواسيب، لأن الخدمة «Avahi» لا تعمل على هذا الحاسوب. شغِّلها، أو أدخل عنوان الحاسوب الآخر.</translation>
    </message>
    <message>
        <source>“%1” is not a valid host. Enter a name, such as “computer.local”, or an IP address.</source>
        <translation>«⁨%1⁩» ليس مضيفًا صالحًا. أدخل اسمًا مثل «computer.local»، أو عنوان IP.</translation>
    </message>
    <message>
        <source>Enter a server and a store name.</source>
        <translation>أدخل خادمًا واسم مخزن.</translation>
    </message>
    <message>
        <source>“%1” is not a valid server name. Enter a name such as “dav.example.org”.</source>
        <translation>«⁨%1⁩» ليس اسم خادم صالحًا. أدخل اسمًا مثل «⁨dav.example.org⁩».</translation>
    </message>
    <message>
        <source>A server name contains no blanks. Remove the blank from “%1”.</source>
        <translation>لا يحتوي اسم الخادم على مسافات. أزل المسافة من «⁨%1⁩».</translation>
    </message>
    <message>
        <source>A server name cannot contain “%1”.</source>
        <translation>لا يمكن أن يحتوي اسم الخادم على «⁨%1⁩».</translation>
    </message>
    <message>
        <source>Enter “%1” instead.</source>
        <translation>أدخل «⁨%1⁩» بدلًا من ذلك.</translation>
    </message>
    <message>
        <source>The server field contains a complete address. Click “Fill In the Fields”.</source>
        <translation>يحتوي حقل الخادم على عنوان كامل. انقر «ملء الحقول».</translation>
    </message>
    <message>
        <source>The port is a number from 1 to 65535. Correct it or leave it empty.</source>
        <translation>المنفذ عدد من 1 إلى 65535. صحِّحه أو اتركه فارغًا.</translation>
    </message>
    <message>
        <source>The folder and the store name cannot contain “?”.</source>
        <translation>لا يمكن أن يحتوي المجلد واسم المخزن على «?».</translation>
    </message>
    <message>
        <source>Address: %1</source>
        <translation>العنوان: ⁨%1⁩</translation>
    </message>
    <message>
        <source>Fill In the Fields</source>
        <translation>ملء الحقول</translation>
    </message>
    <message>
        <source>Distribute the address in the server field over the fields</source>
        <translation>توزيع العنوان المكتوب في حقل الخادم على الحقول</translation>
    </message>
    <message>
        <source>“%1” does not return what was written to it. Check the server or the disk, or use another location.</source>
        <translation>ما يُقرأ من «⁨%1⁩» يختلف عما كُتب فيه. تحقق من الخادم أو القرص، أو استخدم موقعًا آخر.</translation>
    </message>
    <message numerus="yes">
        <source>%1 databases</source>
        <translation>
            <numerusform>%1 قاعدة بيانات</numerusform>
            <numerusform>%1 قاعدة بيانات</numerusform>
            <numerusform>%1 قاعدتا بيانات</numerusform>
            <numerusform>%1 قواعد بيانات</numerusform>
            <numerusform>%1 قاعدة بيانات</numerusform>
            <numerusform>%1 قاعدة بيانات</numerusform>
        </translation>
    </message>
    <message>
        <source>“%1” can be read. %2.</source>
        <translation>يمكن القراءة من «⁨%1⁩». ⁨%2⁩.</translation>
    </message>
    <message>
        <source>“%1” can be read and written. %2.</source>
        <translation>يمكن القراءة من «⁨%1⁩» والكتابة فيه. ⁨%2⁩.</translation>
    </message>
    <message>
        <source>“%1” can be read and written. %2, %3.</source>
        <translation>يمكن القراءة من «⁨%1⁩» والكتابة فيه. ⁨%2⁩، ⁨%3⁩.</translation>
    </message>
    <message>
        <source>“%1” can be read, but not written. %2</source>
        <translation>يمكن القراءة من «⁨%1⁩»، لكن لا تمكن الكتابة فيه. ⁨%2⁩</translation>
    </message>
    <message>
        <source>“%1” takes too long to respond. Check whether it is available, and try again.</source>
        <translation>يستغرق «⁨%1⁩» وقتًا طويلًا في الاستجابة. تحقق من توفره وأعد المحاولة.</translation>
    </message>
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
    <message>
        <source>Show Log</source>
        <translation>عرض السجل</translation>
    </message>
    <message>
        <source>%1 %2 of %3</source>
        <translation>⁨%1⁩ تم ⁨%2⁩ من ⁨%3⁩</translation>
    </message>
    <message>
        <source>Progress of the synchronization</source>
        <translation>تقدم المزامنة</translation>
    </message>
    <message>
        <source>Stop</source>
        <translation>إيقاف</translation>
    </message>
    <message>
        <source>Stop all synchronizations. The next one continues where they stopped.</source>
        <translation>إيقاف كل المزامنات. تبدأ المزامنة التالية من حيث توقفت.</translation>
    </message>
    <message>
        <source>damaged record</source>
        <translation>قيد تالف</translation>
    </message>
    <message>
        <source>invalid name or text</source>
        <translation>اسم أو نص غير صالح</translation>
    </message>
    <message>
        <source>a file is missing</source>
        <translation>ملف مفقود</translation>
    </message>
    <message>
        <source>a file cannot be used</source>
        <translation>ملف غير قابل للاستخدام</translation>
    </message>
    <message>
        <source>a newer version is needed</source>
        <translation>يلزم إصدار أحدث</translation>
    </message>
    <message>
        <source>not shared by the server</source>
        <translation>لا يتيحها الخادم</translation>
    </message>
    <message>
        <source>wrong password</source>
        <translation>كلمة مرور خاطئة</translation>
    </message>
    <message>
        <source>access denied</source>
        <translation>الوصول مرفوض</translation>
    </message>
    <message>
        <source>read-only</source>
        <translation>للقراءة فقط</translation>
    </message>
    <message>
        <source>no space left</source>
        <translation>لا توجد مساحة</translation>
    </message>
    <message>
        <source>not available</source>
        <translation>غير متاح</translation>
    </message>
    <message>
        <source>certificate not trusted</source>
        <translation>شهادة غير موثوقة</translation>
    </message>
    <message>
        <source>waiting for your decision</source>
        <translation>بانتظار قرارك</translation>
    </message>
    <message>
        <source>the profile cannot be saved</source>
        <translation>يتعذر حفظ ملف التعريف</translation>
    </message>
    <message>
        <source>failed %1</source>
        <translation>فشلت ⁨%1⁩</translation>
    </message>
    <message>
        <source>failed %1: %2</source>
        <translation>فشلت ⁨%1⁩: ⁨%2⁩</translation>
    </message>
    <message>
        <source>never synchronized</source>
        <translation>لم تتم المزامنة قط</translation>
    </message>
    <message>
        <source>synchronized %1</source>
        <translation>تمت المزامنة ⁨%1⁩</translation>
    </message>
    <message numerus="yes">
        <source>Synchronized with %1 of %2 locations · %3</source>
        <translation>
            <numerusform>تمت المزامنة مع %1 من أصل %2 موقع · %3</numerusform>
            <numerusform>تمت المزامنة مع %1 من أصل %2 موقع · %3</numerusform>
            <numerusform>تمت المزامنة مع %1 من أصل %2 موقعين · %3</numerusform>
            <numerusform>تمت المزامنة مع %1 من أصل %2 مواقع · %3</numerusform>
            <numerusform>تمت المزامنة مع %1 من أصل %2 موقعًا · %3</numerusform>
            <numerusform>تمت المزامنة مع %1 من أصل %2 موقع · %3</numerusform>
        </translation>
    </message>
    <message>
        <source>Synchronization failed</source>
        <translation>فشلت المزامنة</translation>
    </message>
    <message>
        <source>Synchronization failed · last synchronized %1</source>
        <translation>فشلت المزامنة · آخر مزامنة: ⁨%1⁩</translation>
    </message>
    <message>
        <source>Not yet synchronized with the ticked locations</source>
        <translation>لم تتم المزامنة مع المواقع المعلَّمة بعد</translation>
    </message>
    <message>
        <source>Tick a location first. A schedule belongs to the locations that are ticked.</source>
        <translation>علِّم موقعًا أولًا. يخص الجدول الزمني المواقع المعلَّمة.</translation>
    </message>
    <message>
        <source>Choose at least one day. Otherwise nothing is synchronized.</source>
        <translation>اختر يومًا واحدًا على الأقل، وإلا فلن يُزامَن شيء.</translation>
    </message>
    <message>
        <source>The last synchronization failed. Show what failed.</source>
        <translation>فشلت المزامنة الأخيرة. عرض ما فشل.</translation>
    </message>
    <message>
        <source>Show what failed with “%1”</source>
        <translation>عرض ما فشل مع «⁨%1⁩»</translation>
    </message>
    <message>
        <source>Synchronizes “%1” with “%2”</source>
        <translation>مزامنة «⁨%1⁩» مع «⁨%2⁩»</translation>
    </message>
    <message>
        <source>Unavailable</source>
        <translation>غير متاح</translation>
    </message>
    <message>
        <source>Dropbox</source>
        <translation>Dropbox</translation>
    </message>
    <message>
        <source>Local Sync Store</source>
        <translation>مخزن مزامنة محلي</translation>
    </message>
    <message>
        <source>WebDAV</source>
        <translation>WebDAV</translation>
    </message>
    <message>
        <source>Dropbox Location</source>
        <translation>موقع Dropbox</translation>
    </message>
    <message>
        <source>Sign In…</source>
        <translation>تسجيل الدخول…</translation>
    </message>
    <message>
        <source>Reading the password…</source>
        <translation>تجري قراءة كلمة المرور…</translation>
    </message>
    <message>
        <source>%1 %2 To replace the password, enter it again.</source>
        <translation>⁨%1⁩ ⁨%2⁩ لاستبدال كلمة المرور، أدخلها من جديد.</translation>
    </message>
    <message>
        <source>Direct Connection</source>
        <translation>اتصال مباشر</translation>
    </message>
    <message>
        <source>Unknown Location</source>
        <translation>موقع غير معروف</translation>
    </message>
    <message>
        <source>No Address</source>
        <translation>بلا عنوان</translation>
    </message>
    <message>
        <source>Sync Now</source>
        <translation>المزامنة الآن</translation>
    </message>
    <message>
        <source>Not authorized</source>
        <translation>غير مصرَّح</translation>
    </message>
    <message>
        <source>Authorizing…</source>
        <translation>يجري التصريح…</translation>
    </message>
    <message>
        <source>Authorized</source>
        <translation>مصرَّح</translation>
    </message>
    <message>
        <source>Give Velmora access to any folder where indexed items may be kept.</source>
        <translation>امنح Velmora حق الوصول إلى كل مجلد قد تُحفظ فيه العناصر المفهرسة.</translation>
    </message>
    <message>
        <source>Success</source>
        <translation>نجاح</translation>
    </message>
    <message>
        <source>Parameter Error</source>
        <translation>خطأ في المعاملات</translation>
    </message>
    <message>
        <source>Illegal parameter supplied to encryption/decryption algorithm</source>
        <translation>أُعطيت خوارزمية التعمية أو فكها معاملًا غير مسموح به</translation>
    </message>
    <message>
        <source>Buffer Too Small</source>
        <translation>المخزن المؤقت صغير جدًا</translation>
    </message>
    <message>
        <source>Insufficient buffer provided for specified operation</source>
        <translation>المخزن المؤقت المتاح لا يكفي العملية المطلوبة</translation>
    </message>
    <message>
        <source>Memory Failure</source>
        <translation>نقص في الذاكرة</translation>
    </message>
    <message>
        <source>Failed to allocate memory</source>
        <translation>تعذر حجز الذاكرة</translation>
    </message>
    <message>
        <source>Alignment Error</source>
        <translation>خطأ في المحاذاة</translation>
    </message>
    <message>
        <source>Input size to encryption algorithm was not aligned correctly</source>
        <translation>طول مدخلات خوارزمية التعمية غير صحيح</translation>
    </message>
    <message>
        <source>Decode Error</source>
        <translation>خطأ في فك الترميز</translation>
    </message>
    <message>
        <source>Input data did not decode or decrypt correctly</source>
        <translation>تعذر فك ترميز البيانات المدخلة أو تعميتها على نحو صحيح</translation>
    </message>
    <message>
        <source>Unimplemented Function</source>
        <translation>وظيفة غير متوفرة</translation>
    </message>
    <message>
        <source>Function not implemented for the current algorithm</source>
        <translation>الوظيفة غير متوفرة في الخوارزمية الحالية</translation>
    </message>
    <message>
        <source>Unknown Error</source>
        <translation>خطأ غير معروف</translation>
    </message>
    <message>
        <source>Failed to fetch information for database (%@)</source>
        <translation>تعذر جلب معلومات قاعدة البيانات (%@)</translation>
    </message>
    <message>
        <source>The profile “%1” is damaged. Restore it from a backup or use another profile.</source>
        <translation>ملف التعريف «⁨%1⁩» تالف. استعده من نسخة احتياطية أو استخدم ملف تعريف آخر.</translation>
    </message>
    <message>
        <source>An index of the profile “%1” is damaged, so that notes may seem to be missing. Quit Velmora if it is running, and start it: it rebuilds the index or offers to restore a backup.</source>
        <translation>أحد فهارس ملف التعريف «⁨%1⁩» تالف، لذلك قد تبدو ملاحظات مفقودة. أغلق Velmora إن كان يعمل، ثم شغّله: سيعيد بناء الفهرس أو يعرض استعادة نسخة احتياطية.</translation>
    </message>
    <message>
        <source>The profile “%1” cannot be read, because its disk reports an error. Check the disk and its connection, then start Velmora again.</source>
        <translation>تتعذر قراءة ملف التعريف «⁨%1⁩» لأن قرصه يبلغ عن خطأ. تحقق من القرص ومن توصيله، ثم شغّل Velmora من جديد.</translation>
    </message>
    <message>
        <source>The profile “%1” is damaged (%2). Quit Velmora and start it again: it then repairs the profile or offers to restore a backup.</source>
        <translation>ملف التعريف «⁨%1⁩» تالف (⁨%2⁩). أغلق Velmora وشغّله من جديد: سيصلح ملف التعريف عندئذ أو يعرض استعادة نسخة احتياطية.</translation>
    </message>
    <message>
        <source>An index of the profile was damaged and was rebuilt. If this happens again, check the disk.</source>
        <translation>كان أحد فهارس ملف التعريف تالفًا وأُعيد بناؤه. إذا تكرر ذلك، فتحقق من القرص.</translation>
    </message>
    <message>
        <source>The profile “%1” was created by a newer version of Velmora. Update Velmora to open it.</source>
        <translation>أُنشئ ملف التعريف «⁨%1⁩» بإصدار أحدث من Velmora. حدِّث Velmora لفتحه.</translation>
    </message>
    <message>
        <source>“%1” is a database of another program, not a profile. Choose another folder.</source>
        <translation>«⁨%1⁩» قاعدة بيانات برنامج آخر وليس ملف تعريف. اختر مجلدًا آخر.</translation>
    </message>
    <message>
        <source>“%1” is not a file, so it cannot be opened as a profile. Choose another folder.</source>
        <translation>«⁨%1⁩» ليس ملفًا، لذلك لا يمكن فتحه بوصفه ملف تعريف. اختر مجلدًا آخر.</translation>
    </message>
    <message>
        <source>The profile “%1” is in use by another Velmora. Quit it and try again.</source>
        <translation>يستخدم Velmora آخر ملف التعريف «⁨%1⁩». أنهِه وأعد المحاولة.</translation>
    </message>
    <message>
        <source>The profile folder “%1” cannot be locked: %2. Check its disk and its permissions, then try again.</source>
        <translation>يتعذر قفل مجلد ملف التعريف «⁨%1⁩»: ⁨%2⁩. تحقق من القرص والأذونات، ثم أعد المحاولة.</translation>
    </message>
    <message>
        <source>The profile “%1” cannot be copied: %2. Check the disk, then try again.</source>
        <translation>يتعذر نسخ ملف التعريف «⁨%1⁩»: ⁨%2⁩. تحقق من القرص، ثم أعد المحاولة.</translation>
    </message>
    <message>
        <source>You do not have permission to read the profile “%1”. Change its permissions or use another profile.</source>
        <translation>ليس لديك إذن بقراءة ملف التعريف «⁨%1⁩». غيِّر أذوناته أو استخدم ملف تعريف آخر.</translation>
    </message>
    <message>
        <source>The profile “%1” is read-only. Change its permissions or use another profile.</source>
        <translation>ملف التعريف «⁨%1⁩» للقراءة فقط. غيِّر أذوناته أو استخدم ملف تعريف آخر.</translation>
    </message>
    <message>
        <source>The profile folder “%1” is read-only. Change its permissions or use another profile.</source>
        <translation>مجلد ملف التعريف «⁨%1⁩» للقراءة فقط. غيِّر أذوناته أو استخدم ملف تعريف آخر.</translation>
    </message>
    <message>
        <source>The profile folder “%1” could not be created. Check the permissions of the folder that contains it.</source>
        <translation>تعذر إنشاء مجلد ملف التعريف «⁨%1⁩». تحقق من أذونات المجلد الذي يحتويه.</translation>
    </message>
    <message>
        <source>“%1” is not a folder. Choose a folder for the profile.</source>
        <translation>«⁨%1⁩» ليس مجلدًا. اختر مجلدًا لملف التعريف.</translation>
    </message>
    <message>
        <source>The folder “%1” contains other files and no profile. Choose an empty folder.</source>
        <translation>يحتوي المجلد «⁨%1⁩» على ملفات أخرى وليس فيه ملف تعريف. اختر مجلدًا فارغًا.</translation>
    </message>
    <message>
        <source>%1 %2 Unlock the keyring and try again.</source>
        <translation>⁨%1⁩ ⁨%2⁩ افتح قفل حلقة المفاتيح وأعد المحاولة.</translation>
    </message>
    <message>
        <source>Profile:</source>
        <translation>ملف التعريف:</translation>
    </message>
    <message>
        <source>Other users of this computer may be able to read the profile “%1”, because its permissions cannot be changed. Move it to a folder of your own.</source>
        <translation>قد يتمكن مستخدمون آخرون لهذا الحاسوب من قراءة ملف التعريف «⁨%1⁩»، لأنه يتعذر تغيير أذوناته. انقله إلى مجلد خاص بك.</translation>
    </message>
    <message>
        <source>The profile “%1” cannot be opened: %2. Check its disk and its permissions, then try again.</source>
        <translation>يتعذر فتح ملف التعريف «⁨%1⁩»: ⁨%2⁩. تحقق من القرص والأذونات، ثم أعد المحاولة.</translation>
    </message>
    <message>
        <source>The profile “%1” cannot be read or written: %2. Check its disk and its permissions, then try again.</source>
        <translation>تتعذر قراءة ملف التعريف «⁨%1⁩» أو الكتابة فيه: ⁨%2⁩. تحقق من القرص والأذونات، ثم أعد المحاولة.</translation>
    </message>
    <message>
        <source>The profile “%1” has no inbox. Restore it from a backup or use another profile.</source>
        <translation>ليس في ملف التعريف «⁨%1⁩» ملاحظات واردة. استعده من نسخة احتياطية أو استخدم ملف تعريف آخر.</translation>
    </message>
    <message>
        <source>The profile “%1” no longer exists. Quit Velmora and restore it from a backup.</source>
        <translation>لم يعد ملف التعريف «⁨%1⁩» موجودًا. أنهِ Velmora واستعد الملف من نسخة احتياطية.</translation>
    </message>
    <message>
        <source>Enter a name for the database.</source>
        <translation>أدخل اسمًا لقاعدة البيانات.</translation>
    </message>
    <message>
        <source>The operation was cancelled.</source>
        <translation>أُلغيت العملية.</translation>
    </message>
    <message>
        <source>The sync store is not open. Try again.</source>
        <translation>مخزن المزامنة غير مفتوح. أعد المحاولة.</translation>
    </message>
    <message>
        <source>This location has no address. Remove it and add it again.</source>
        <translation>ليس لهذا الموقع عنوان. أزله ثم أضفه من جديد.</translation>
    </message>
    <message>
        <source>Velmora does not support locations of the kind “%1”. Remove this location and add another one.</source>
        <translation>لا يدعم Velmora المواقع من النوع «⁨%1⁩». أزل هذا الموقع وأضف موقعًا آخر.</translation>
    </message>
    <message>
        <source>“%1” is a folder on another computer. Choose a folder on this computer.</source>
        <translation>«⁨%1⁩» مجلد على حاسوب آخر. اختر مجلدًا على هذا الحاسوب.</translation>
    </message>
    <message>
        <source>The sync store “%1” does not exist. Check whether it was moved or renamed.</source>
        <translation>مخزن المزامنة «⁨%1⁩» غير موجود. تحقق مما إذا كان قد نُقل أو أُعيدت تسميته.</translation>
    </message>
    <message>
        <source>“%1” is not a sync store. Edit the location and choose another one.</source>
        <translation>«⁨%1⁩» ليس مخزن مزامنة. حرِّر الموقع واختر مخزنًا آخر.</translation>
    </message>
    <message>
        <source>Do Not Trust</source>
        <translation>عدم الثقة</translation>
    </message>
    <message>
        <source>Fingerprint (SHA-256): %1</source>
        <translation>البصمة (SHA-256): ⁨%1⁩</translation>
    </message>
    <message>
        <source>Issued by: %1</source>
        <translation>جهة الإصدار: ⁨%1⁩</translation>
    </message>
    <message>
        <source>Issued to: %1</source>
        <translation>أُصدرت لـ: ⁨%1⁩</translation>
    </message>
    <message>
        <source>A secure connection to the server “%1” could not be established (%2). Check its port, and whether it supports HTTPS.</source>
        <translation>تعذر إنشاء اتصال آمن بالخادم «⁨%1⁩» (⁨%2⁩). تحقق من منفذه ومن دعمه لـ HTTPS.</translation>
    </message>
    <message>
        <source>“%1” is not a valid name in a sync store. Install the newest version of Velmora on all your computers.</source>
        <translation>«⁨%1⁩» ليس اسمًا صالحًا في مخزن مزامنة. ثبِّت أحدث إصدار من Velmora على جميع حواسيبك.</translation>
    </message>
    <message>
        <source>The server “%1” sent an unexpected response (HTTP %2). Try again later or ask its administrator.</source>
        <translation>أرسل الخادم «⁨%1⁩» استجابة غير متوقعة (HTTP ⁨%2⁩). أعد المحاولة لاحقًا أو اسأل مدير الخادم.</translation>
    </message>
    <message>
        <source>The server “%1” sent an invalid response. Try again later or ask its administrator.</source>
        <translation>أرسل الخادم «⁨%1⁩» استجابة غير صالحة. أعد المحاولة لاحقًا أو اسأل مدير الخادم.</translation>
    </message>
    <message>
        <source>“%1” is missing from the response or is not valid.</source>
        <translation>«⁨%1⁩» مفقود من الاستجابة أو غير صالح.</translation>
    </message>
    <message>
        <source>The server “%1” sent a response that is too long. Ask its administrator.</source>
        <translation>أرسل الخادم «⁨%1⁩» استجابة طويلة جدًا. اسأل مدير الخادم.</translation>
    </message>
    <message>
        <source>The certificate, or one with which it was issued, has a key or a signature that is too weak.</source>
        <translation>للشهادة، أو لإحدى الشهادات التي أُصدرت بها، مفتاح أو توقيع ضعيف جدًا.</translation>
    </message>
    <message>
        <source>The certificate has expired.</source>
        <translation>انتهت صلاحية الشهادة.</translation>
    </message>
    <message>
        <source>The certificate is not valid yet.</source>
        <translation>لم تبدأ صلاحية الشهادة بعد.</translation>
    </message>
    <message>
        <source>The certificate is self-signed.</source>
        <translation>الشهادة موقَّعة ذاتيًا.</translation>
    </message>
    <message>
        <source>The certificate was issued for another server.</source>
        <translation>أُصدرت الشهادة لخادم آخر.</translation>
    </message>
    <message>
        <source>The certificate was issued by an authority that this computer does not trust.</source>
        <translation>أصدرت الشهادةَ جهةٌ لا يثق بها هذا الحاسوب.</translation>
    </message>
    <message>
        <source>The folder “%1” does not exist on the server. Create it there or edit the location.</source>
        <translation>المجلد «⁨%1⁩» غير موجود على الخادم. أنشئه هناك أو حرِّر الموقع.</translation>
    </message>
    <message>
        <source>The server does not allow you to use “%1”. Ask its administrator for access.</source>
        <translation>لا يسمح لك الخادم باستخدام «⁨%1⁩». اطلب حق الوصول من مدير الخادم.</translation>
    </message>
    <message>
        <source>The server “%1” requires a password, but none is saved for this location. Edit the location to enter it.</source>
        <translation>يتطلب الخادم «⁨%1⁩» كلمة مرور، لكن لم تُحفظ كلمة مرور لهذا الموقع. حرِّر الموقع لإدخالها.</translation>
    </message>
    <message>
        <source>The server “%1” supports neither Basic nor Digest authentication with MD5 or SHA-256. Ask its administrator to allow one of them.</source>
        <translation>لا يدعم الخادم «⁨%1⁩» مصادقة Basic ولا مصادقة Digest باستخدام MD5 أو SHA-256. اطلب من مدير الخادم السماح بإحداهما.</translation>
    </message>
    <message>
        <source>The server “%1” closed the connection without a response. Check its name and port.</source>
        <translation>أغلق الخادم «⁨%1⁩» الاتصال دون استجابة. تحقق من اسمه ومنفذه.</translation>
    </message>
    <message>
        <source>The server “%1” cannot be reached through the proxy “%2” (%3). Check the proxy in the network settings of the desktop.</source>
        <translation>يتعذر الوصول إلى الخادم «⁨%1⁩» عبر الوكيل «⁨%2⁩» (⁨%3⁩). تحقق من الوكيل في إعدادات الشبكة لسطح المكتب.</translation>
    </message>
    <message>
        <source>The server “%1” cannot be reached: %2. Check the network connection.</source>
        <translation>يتعذر الوصول إلى الخادم «⁨%1⁩»: ⁨%2⁩. تحقق من اتصال الشبكة.</translation>
    </message>
    <message>
        <source>The server “%1” refused the connection. Check the port, and whether the server is running.</source>
        <translation>رفض الخادم «⁨%1⁩» الاتصال. تحقق من المنفذ ومن أن الخادم يعمل.</translation>
    </message>
    <message>
        <source>The server “%1” cannot prove its identity. Trust its certificate for this location?</source>
        <translation>لا يستطيع الخادم «⁨%1⁩» إثبات هويته. هل تثق بشهادته لهذا الموقع؟</translation>
    </message>
    <message>
        <source>The server “%1” cannot prove its identity: %2 Check the address, or ask the administrator of the server about its certificate.</source>
        <translation>لا يستطيع الخادم «⁨%1⁩» إثبات هويته: ⁨%2⁩ تحقق من العنوان، أو اسأل مسؤول الخادم عن شهادته.</translation>
    </message>
    <message>
        <source>The server “%1” does not accept this user name and password. Edit the location to correct them.</source>
        <translation>لا يقبل الخادم «⁨%1⁩» اسم المستخدم وكلمة المرور هذين. حرِّر الموقع لتصحيحهما.</translation>
    </message>
    <message>
        <source>The server “%1” does not respond. Check the network connection and try again.</source>
        <translation>لا يستجيب الخادم «⁨%1⁩». تحقق من اتصال الشبكة وأعد المحاولة.</translation>
    </message>
    <message>
        <source>The server “%1” reported an internal error (HTTP %2). Try again later or ask its administrator.</source>
        <translation>أبلغ الخادم «⁨%1⁩» عن خطأ داخلي (HTTP ⁨%2⁩). أعد المحاولة لاحقًا أو اسأل مدير الخادم.</translation>
    </message>
    <message>
        <source>The server “%1” is busy. Try again later.</source>
        <translation>الخادم «⁨%1⁩» مشغول. أعد المحاولة لاحقًا.</translation>
    </message>
    <message>
        <source>The server “%1” has no space left. Delete files there or ask its administrator.</source>
        <translation>لا توجد مساحة على الخادم «⁨%1⁩». احذف ملفات منه أو اسأل مدير الخادم.</translation>
    </message>
    <message>
        <source>The server “%1” does not offer WebDAV at this address. Edit the location to correct it.</source>
        <translation>لا يقدم الخادم «⁨%1⁩» خدمة WebDAV على هذا العنوان. حرِّر الموقع لتصحيحه.</translation>
    </message>
    <message>
        <source>The server “%1” redirects too often. Check the address of the location.</source>
        <translation>يعيد الخادم «⁨%1⁩» التوجيه مرات كثيرة جدًا. تحقق من عنوان الموقع.</translation>
    </message>
    <message>
        <source>The server “%1” redirects to “%2”. If that is correct, edit the location and enter it as the address.</source>
        <translation>يعيد الخادم «⁨%1⁩» التوجيه إلى «⁨%2⁩». إذا كان ذلك صحيحًا، فحرِّر الموقع وأدخله عنوانًا له.</translation>
    </message>
    <message>
        <source>The server “%1” takes too long to respond. Try again later.</source>
        <translation>يستغرق الخادم «⁨%1⁩» وقتًا طويلًا في الاستجابة. أعد المحاولة لاحقًا.</translation>
    </message>
    <message>
        <source>The sync store “%1” is read-only. Change its permissions or choose another one.</source>
        <translation>مخزن المزامنة «⁨%1⁩» للقراءة فقط. غيِّر أذوناته أو اختر مخزنًا آخر.</translation>
    </message>
    <message>
        <source>The volume that contains the sync store “%1” is full. Free some space on it.</source>
        <translation>القرص الذي يحتوي على مخزن المزامنة «⁨%1⁩» ممتلئ. أفرغ مساحة عليه.</translation>
    </message>
    <message>
        <source>The volume that contains the sync store “%1” is not mounted. Connect it and try again.</source>
        <translation>القرص الذي يحتوي على مخزن المزامنة «⁨%1⁩» غير موصول. صِله وأعد المحاولة.</translation>
    </message>
    <message>
        <source>The server “%1” was not found. Check its name and the network connection.</source>
        <translation>لم يُعثر على الخادم «⁨%1⁩». تحقق من اسمه ومن اتصال الشبكة.</translation>
    </message>
    <message>
        <source>The address of the server “%1” could not be looked up. Check the network connection and try again.</source>
        <translation>تعذر البحث عن عنوان الخادم «⁨%1⁩». تحقق من الاتصال بالشبكة وأعد المحاولة.</translation>
    </message>
    <message>
        <source>The address of the server “%1” was not looked up because too many look-ups are still running. Try again in a minute.</source>
        <translation>لم يُبحث عن عنوان الخادم «⁨%1⁩» لأن عمليات بحث كثيرة جدًا ما زالت جارية. أعد المحاولة بعد دقيقة.</translation>
    </message>
    <message>
        <source>Trust This Certificate</source>
        <translation>الثقة بهذه الشهادة</translation>
    </message>
    <message>
        <source>Valid from %1 to %2</source>
        <translation>صالحة من ⁨%1⁩ إلى ⁨%2⁩</translation>
    </message>
    <message>
        <source>You do not have permission to use “%1”. Change its permissions or choose another sync store.</source>
        <translation>ليس لديك إذن باستخدام «⁨%1⁩». غيِّر أذوناته أو اختر مخزن مزامنة آخر.</translation>
    </message>
    <message>
        <source>“%1” cannot be read or written: %2. Check its disk and its permissions, then try again.</source>
        <translation>تتعذر قراءة «⁨%1⁩» أو الكتابة فيه: ⁨%2⁩. تحقق من القرص والأذونات، ثم أعد المحاولة.</translation>
    </message>
    <message>
        <source>“%1” is larger than the server accepts. Ask its administrator to raise the limit.</source>
        <translation>حجم «⁨%1⁩» أكبر مما يقبله الخادم. اطلب من مدير الخادم رفع الحد.</translation>
    </message>
    <message>
        <source>“%1” is locked on the server. Try again later.</source>
        <translation>«⁨%1⁩» مقفل على الخادم. أعد المحاولة لاحقًا.</translation>
    </message>
    <message>
        <source>“%1” does not exist. Try again. If it is still missing, check the location.</source>
        <translation>«⁨%1⁩» غير موجود. أعد المحاولة. إذا ظل مفقودًا، فتحقق من الموقع.</translation>
    </message>
    <message>
        <source>“%1” isn’t a valid item in a sync store. Move it to another folder if it does not belong there.</source>
        <translation>«⁨%1⁩» ليس عنصرًا صالحًا في مخزن مزامنة. انقله إلى مجلد آخر إن لم يكن هذا مكانه.</translation>
    </message>
    <message>
        <source>“%1” is too large and was not read. Move it to another folder if it does not belong there.</source>
        <translation>حجم «⁨%1⁩» كبير جدًا، فلم يُقرأ. انقله إلى مجلد آخر إن لم يكن هذا مكانه.</translation>
    </message>
    <message>
        <source>The sync store “%1” could not be created. Check the permissions of the folder that contains it.</source>
        <translation>تعذر إنشاء مخزن المزامنة «⁨%1⁩». تحقق من أذونات المجلد الذي يحتويه.</translation>
    </message>
    <message>
        <source>The record “%1” was not stored as it was written. Try again. If this happens repeatedly, use another location.</source>
        <translation>لم يُخزَّن القيد «⁨%1⁩» كما كُتب. أعد المحاولة. إذا تكرر ذلك، فاستخدم موقعًا آخر.</translation>
    </message>
    <message>
        <source>The profile file “%1” was moved, deleted or replaced, so nothing can be saved. Put it back, or copy unsaved text elsewhere and restart Velmora.</source>
        <translation>نُقل الملف «⁨%1⁩» لملف التعريف أو حُذف أو استُبدل، لذلك لا يمكن حفظ شيء. أعده إلى مكانه، أو انسخ النص غير المحفوظ إلى مكان آخر ثم شغِّل Velmora من جديد.</translation>
    </message>
    <message>
        <source>The profile file “%1” cannot be reached, so nothing can be saved: %2. Check the permissions of its folder and its disk, or copy unsaved text elsewhere and restart Velmora.</source>
        <translation>يتعذر الوصول إلى الملف «⁨%1⁩» لملف التعريف، لذلك لا يمكن حفظ شيء: %2. تحقق من أذونات مجلده ومن قرصه، أو انسخ النص غير المحفوظ إلى مكان آخر ثم شغِّل Velmora من جديد.</translation>
    </message>
    <message>
        <source>The record “%1” was damaged. It was moved to “%2”, and this computer writes its contents again.</source>
        <translation>كان القيد «⁨%1⁩» تالفًا. نُقل إلى «⁨%2⁩»، وسيكتب هذا الحاسوب محتواه من جديد.</translation>
    </message>
    <message>
        <source>The record “%1” was damaged and was moved to “%2”. Synchronize on the computer that wrote it to restore its contents.</source>
        <translation>كان القيد «⁨%1⁩» تالفًا ونُقل إلى «⁨%2⁩». لاستعادة محتواه، أجرِ المزامنة على الحاسوب الذي كتبه.</translation>
    </message>
    <message>
        <source>A temporary folder cannot be created: %1. Check the permissions of “%2” and the space on its disk.</source>
        <translation>يتعذر إنشاء مجلد مؤقت: ⁨%1⁩. تحقق من أذونات «⁨%2⁩» ومن المساحة على قرصه.</translation>
    </message>
    <message>
        <source>The folder “%1” cannot be read: %2. Databases that were added on other computers are not synchronized. Check its permissions and its disk.</source>
        <translation>تتعذر قراءة المجلد «⁨%1⁩»: ⁨%2⁩. لا تُزامَن قواعد البيانات التي أُضيفت على حواسيب أخرى. تحقق من أذوناته ومن قرصه.</translation>
    </message>
    <message>
        <source>The damaged record “%1” cannot be copied, because the location does not store what is written. Check the disk or the server.</source>
        <translation>يتعذر نسخ القيد التالف «⁨%1⁩»، لأن الموقع لا يخزِّن ما يُكتب فيه. تحقق من القرص أو الخادم.</translation>
    </message>
    <message>
        <source>Everything was synchronized, but the records at “%1” could not be merged: %2</source>
        <translation>تمت مزامنة كل شيء، لكن تعذر دمج القيود في «⁨%1⁩»: ⁨%2⁩</translation>
    </message>
    <message>
        <source>The record “%1” was read differently each time, so it was left as it is. Check the disk or the server.</source>
        <translation>قُرئ القيد «⁨%1⁩» على نحو مختلف في كل مرة، لذلك تُرك كما هو. تحقق من القرص أو الخادم.</translation>
    </message>
    <message>
        <source>Profile</source>
        <translation>ملف التعريف</translation>
    </message>
    <message>
        <source>The database of the profile is damaged (%1). Restore it from a backup.</source>
        <translation>قاعدة بيانات ملف التعريف تالفة (⁨%1⁩). استعده من نسخة احتياطية.</translation>
    </message>
    <message>
        <source>Damaged notes in the database “%1”: %2. “velmora verify --repair” reads them again from the locations. If no location has them, check their texts and edit them.</source>
        <translation>ملاحظات تالفة في قاعدة البيانات «⁨%1⁩»: ⁨%2⁩. يقرأها الأمر «velmora verify --repair» من المواقع مجددًا. إذا لم تكن في أي موقع، فراجع نصوصها وحرِّرها.</translation>
    </message>
    <message>
        <source>Damaged notes in the database “%1” that no location could restore: %2. Check their texts, edit them and synchronize, or restore a backup of the profile.</source>
        <translation>ملاحظات تالفة في قاعدة البيانات «⁨%1⁩» لم يتمكن أي موقع من استعادتها: %2. تحقق من نصوصها وحرِّرها ثم زامن، أو استعد نسخة احتياطية من ملف التعريف.</translation>
    </message>
    <message>
        <source>Changes of notes in the database “%1” that this computer has lost: %2. “velmora verify --repair” reads them again from the locations. If no location has them, synchronize on the other computers, then here, or restore a backup of the profile.</source>
        <translation>تغييرات الملاحظات في قاعدة البيانات «⁨%1⁩» التي فقدها هذا الحاسوب: %2. يقرأها الأمر «velmora verify --repair» من المواقع مجددًا. إذا لم تكن في أي موقع، فزامن على الحواسيب الأخرى ثم هنا، أو استعد نسخة احتياطية من ملف التعريف.</translation>
    </message>
    <message>
        <source>Changes of notes in the database “%1” that this computer has lost and that no location could restore: %2. Synchronize on the other computers, then here, or restore a backup of the profile.</source>
        <translation>تغييرات ملاحظات في قاعدة البيانات «⁨%1⁩» فقدها هذا الحاسوب ولم يتمكن أي موقع من استعادتها: %2. زامن على الحواسيب الأخرى ثم هنا، أو استعد نسخة احتياطية من ملف التعريف.</translation>
    </message>
    <message>
        <source>“%1”</source>
        <translation>«⁨%1⁩»</translation>
    </message>
    <message numerus="yes">
        <source>%1 and %2 more</source>
        <translation>
            <numerusform>%1 و%2 أخرى</numerusform>
            <numerusform>%1 و%2 أخرى</numerusform>
            <numerusform>%1 و%2 أخريان</numerusform>
            <numerusform>%1 و%2 أخرى</numerusform>
            <numerusform>%1 و%2 أخرى</numerusform>
            <numerusform>%1 و%2 أخرى</numerusform>
        </translation>
    </message>
    <message>
        <source>name of a database</source>
        <translation>اسم قاعدة بيانات</translation>
    </message>
    <message>
        <source>lost changes: %1</source>
        <translation>تغييرات مفقودة: %1</translation>
    </message>
    <message>
        <source>databases: %1, notes: %2</source>
        <translation>قواعد البيانات: ⁨%1⁩، الملاحظات: ⁨%2⁩</translation>
    </message>
    <message>
        <source>“%1” at “%2”</source>
        <translation>«⁨%1⁩» في «⁨%2⁩»</translation>
    </message>
    <message>
        <source>The location no longer contains the database. Synchronize to send everything again.</source>
        <translation>لم يعد الموقع يحتوي على قاعدة البيانات. أجرِ المزامنة لإرسال كل شيء من جديد.</translation>
    </message>
    <message>
        <source>was never synchronized</source>
        <translation>لم تُزامَن قط</translation>
    </message>
    <message>
        <source>records: %1, moved aside: %2</source>
        <translation>القيود: ⁨%1⁩، المنقول جانبًا: ⁨%2⁩</translation>
    </message>
    <message>
        <source>The database “%1” is not on this computer yet. Synchronize it with the location.</source>
        <translation>قاعدة البيانات «⁨%1⁩» ليست على هذا الحاسوب بعد. زامنها مع الموقع.</translation>
    </message>
    <message>
        <source>Another computer changes the location. Try again later.</source>
        <translation>يغيِّر حاسوب آخر الموقع. أعد المحاولة لاحقًا.</translation>
    </message>
    <message>
        <source>Changes at the location that are not on this computer: %1. Synchronize to get them.</source>
        <translation>تغييرات في الموقع ليست على هذا الحاسوب: ⁨%1⁩. أجرِ المزامنة لجلبها.</translation>
    </message>
    <message>
        <source>Changes on this computer that are not at the location: %1. Synchronize to send them.</source>
        <translation>تغييرات على هذا الحاسوب ليست في الموقع: ⁨%1⁩. أجرِ المزامنة لإرسالها.</translation>
    </message>
    <message>
        <source>The record “%1” was damaged and is written again.</source>
        <translation>كان القيد «⁨%1⁩» تالفًا وسيُكتب من جديد.</translation>
    </message>
    <message>
        <source>The record “%1” is damaged. Synchronize the other computers that use this location, because one of them may write it again.</source>
        <translation>القيد «⁨%1⁩» تالف. أجرِ المزامنة على الحواسيب الأخرى التي تستخدم هذا الموقع، فقد يكتبه أحدها من جديد.</translation>
    </message>
    <message>
        <source>“%1” is not used, because records have other names. Move it to another folder, or remove it if you do not need it.</source>
        <translation>لا يُستخدم «⁨%1⁩»، لأن للقيود أسماء أخرى. انقل الملف إلى مجلد آخر، أو أزله إن لم تكن بحاجة إليه.</translation>
    </message>
    <message>
        <source>Inbox</source>
        <translation>الوارد</translation>
    </message>
    <message>
        <source>Projects</source>
        <translation>مشاريع</translation>
    </message>
    <message>
        <source>Recipes</source>
        <translation>وصفات</translation>
    </message>
    <message>
        <source>Bookshelf</source>
        <translation>رف الكتب</translation>
    </message>
    <message>
        <source>Measure the alcove beside the window.
Boards of oak, 24 mm; four of them.
Ask Ida for the long clamps.</source>
        <translation>قياس الفجوة بجانب النافذة.
أربعة ألواح من البلوط بسماكة 24 مم.
طلب المشابك الطويلة من عايدة.</translation>
    </message>
    <message>
        <source>Garden</source>
        <translation>الحديقة</translation>
    </message>
    <message>
        <source>Cut back the roses in March.
Plant beans once the nights stay above eight degrees.</source>
        <translation>تقليم الورود في مارس.
زراعة الفاصولياء حين لا تنخفض الحرارة ليلًا عن ثماني درجات.</translation>
    </message>
    <message>
        <source>Pancakes</source>
        <translation>فطائر محلاة</translation>
    </message>
    <message>
        <source>250 g flour
500 ml milk
3 eggs
A pinch of salt

Stir, let it rest for half an hour, bake in butter.</source>
        <translation>250 غ طحين
500 مل حليب
3 بيضات
رشة ملح

اخلط المكونات، واتركها نصف ساعة، ثم اقلها بالزبدة.</translation>
    </message>
    <message>
        <source>Tomato Soup</source>
        <translation>حساء الطماطم</translation>
    </message>
    <message>
        <source>1 kg tomatoes, 2 onions, 1 clove of garlic

Roast everything for forty minutes, add stock, blend.</source>
        <translation>1 كغ طماطم، بصلتان، فص ثوم

اشوِ الكل أربعين دقيقة، ثم أضف المرق واخلط.</translation>
    </message>
    <message>
        <source>Shopping</source>
        <translation>مشتريات</translation>
    </message>
    <message>
        <source>Flour, milk, eggs, tomatoes</source>
        <translation>طحين، حليب، بيض، طماطم</translation>
    </message>
    <message>
        <source>&amp;Remove Schedule</source>
        <translation>إزالة الجدول الزمني (&amp;R)</translation>
    </message>
    <message>
        <source>Databases</source>
        <translation>قواعد البيانات</translation>
    </message>
    <message>
        <source>Days of the weekly synchronization</source>
        <translation>أيام المزامنة الأسبوعية</translation>
    </message>
    <message>
        <source>Every &amp;day</source>
        <translation>كل يوم (&amp;D)</translation>
    </message>
    <message>
        <source>Every &amp;hour</source>
        <translation>كل ساعة (&amp;H)</translation>
    </message>
    <message>
        <source>Every &amp;week</source>
        <translation>كل أسبوع (&amp;W)</translation>
    </message>
    <message>
        <source>The database is then synchronized only when you ask for it, or when it is opened or closed.</source>
        <translation>لن تُزامَن قاعدة البيانات بعد ذلك إلا عندما تطلبه، أو عند فتحها أو إغلاقها.</translation>
    </message>
    <message>
        <source>Location</source>
        <translation>الموقع</translation>
    </message>
    <message>
        <source>Location commands</source>
        <translation>أوامر الموقع</translation>
    </message>
    <message>
        <source>Minutes past the hour</source>
        <translation>الدقائق بعد رأس الساعة</translation>
    </message>
    <message>
        <source>Never synchronized</source>
        <translation>لم تتم المزامنة قط</translation>
    </message>
    <message>
        <source>Next synchronization: %1</source>
        <translation>المزامنة التالية: ⁨%1⁩</translation>
    </message>
    <message>
        <source>No database is open.</source>
        <translation>لا توجد قاعدة بيانات مفتوحة.</translation>
    </message>
    <message>
        <source>No synchronization is scheduled.</source>
        <translation>لا توجد مزامنة مجدولة.</translation>
    </message>
    <message>
        <source>Reading the location</source>
        <translation>تجري قراءة الموقع</translation>
    </message>
    <message>
        <source>Schedule of the selected database</source>
        <translation>الجدول الزمني لقاعدة البيانات المحددة</translation>
    </message>
    <message>
        <source>An error occurred at this location. Show it.</source>
        <translation>حدث خطأ في هذا الموقع. عرضه.</translation>
    </message>
    <message>
        <source>Sync Preferences cannot be used: the sync plug-in has no %1. Install both from the same version of Velmora.</source>
        <translation>لا يمكن استخدام تفضيلات المزامنة: ينقص ملحقَ المزامنة ⁨%1⁩. ثبِّت كليهما من إصدار Velmora نفسه.</translation>
    </message>
    <message>
        <source>Sync Preferences cannot be used: it needs version %1 of the interface to the sync plug-in, which offers version %2. Install both from the same version of Velmora.</source>
        <translation>لا يمكن استخدام تفضيلات المزامنة: تحتاج إلى الإصدار ⁨%1⁩ من واجهة ملحق المزامنة، والملحق يقدم الإصدار ⁨%2⁩. ثبِّت كليهما من إصدار Velmora نفسه.</translation>
    </message>
    <message>
        <source>Sync locations</source>
        <translation>مواقع المزامنة</translation>
    </message>
    <message>
        <source>Synchronize this database with its ticked locations now</source>
        <translation>مزامنة قاعدة البيانات هذه مع مواقعها المعلَّمة الآن</translation>
    </message>
    <message>
        <source>Synchronize with</source>
        <translation>المزامنة مع</translation>
    </message>
    <message>
        <source>Synchronized %1</source>
        <translation>تمت المزامنة ⁨%1⁩</translation>
    </message>
    <message>
        <source>There is no location to synchronize with yet.</source>
        <translation>لا يوجد موقع للمزامنة معه بعد.</translation>
    </message>
    <message>
        <source>Time of the daily synchronization</source>
        <translation>وقت المزامنة اليومية</translation>
    </message>
    <message>
        <source>Time of the weekly synchronization</source>
        <translation>وقت المزامنة الأسبوعية</translation>
    </message>
    <message>
        <source>Version of this pane</source>
        <translation>إصدار هذه اللوحة</translation>
    </message>
    <message>
        <source>When the database is &amp;closed</source>
        <translation>عند إغلاقها (&amp;C)</translation>
    </message>
    <message>
        <source>When the database is &amp;opened</source>
        <translation>عند فتحها (&amp;O)</translation>
    </message>
    <message>
        <source>Whether the selected database synchronizes with this location</source>
        <translation>ما إذا كانت قاعدة البيانات المحددة تُزامَن مع هذا الموقع</translation>
    </message>
    <message>
        <source>minutes past the hour</source>
        <translation>دقيقة بعد رأس الساعة</translation>
    </message>
    <message>
        <source>on</source>
        <translation>أيام</translation>
    </message>
    <message>
        <source>New</source>
        <translation>جديد</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>فتح</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>حفظ</translation>
    </message>
    <message>
        <source>Import…</source>
        <translation>استيراد…</translation>
    </message>
    <message>
        <source>Import databases that exist only at a location</source>
        <translation>استيراد قواعد البيانات الموجودة في موقع فقط</translation>
    </message>
    <message>
        <source>Add</source>
        <translation>إضافة</translation>
    </message>
    <message>
        <source>Add a location</source>
        <translation>إضافة موقع</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>إزالة</translation>
    </message>
    <message>
        <source>Stop synchronizing with the selected location. What is stored there stays.</source>
        <translation>إيقاف المزامنة مع الموقع المحدد. يبقى ما هو مخزَّن فيه.</translation>
    </message>
    <message>
        <source>Edit…</source>
        <translation>تحرير…</translation>
    </message>
    <message>
        <source>More</source>
        <translation>المزيد</translation>
    </message>
    <message>
        <source>More commands for the selected location</source>
        <translation>أوامر أخرى للموقع المحدد</translation>
    </message>
    <message>
        <source>New Folder Store…</source>
        <translation>مخزن مجلد جديد…</translation>
    </message>
    <message>
        <source>Existing Folder Store…</source>
        <translation>مخزن مجلد موجود…</translation>
    </message>
    <message>
        <source>WebDAV Server…</source>
        <translation>خادم WebDAV…</translation>
    </message>
    <message>
        <source>Dropbox Account…</source>
        <translation>حساب Dropbox…</translation>
    </message>
    <message>
        <source>Direct Connection…</source>
        <translation>اتصال مباشر…</translation>
    </message>
    <message>
        <source>Check</source>
        <translation>فحص</translation>
    </message>
    <message>
        <source>Clean Up</source>
        <translation>تنظيف</translation>
    </message>
    <message>
        <source>Show in File Manager</source>
        <translation>عرض في مدير الملفات</translation>
    </message>
    <message>
        <source>Direct Connections…</source>
        <translation>الاتصالات المباشرة…</translation>
    </message>
    <message>
        <source>Folder Access…</source>
        <translation>الوصول إلى المجلدات…</translation>
    </message>
    <message>
        <source>WebDAV Location</source>
        <translation>موقع WebDAV</translation>
    </message>
    <message>
        <source>Server:</source>
        <translation>الخادم:</translation>
    </message>
    <message>
        <source>dav.example.org</source>
        <translation>dav.example.org</translation>
    </message>
    <message>
        <source>Use HTTPS</source>
        <translation>استخدام HTTPS</translation>
    </message>
    <message>
        <source>Port:</source>
        <translation>المنفذ:</translation>
    </message>
    <message>
        <source>User name:</source>
        <translation>اسم المستخدم:</translation>
    </message>
    <message>
        <source>Password:</source>
        <translation>كلمة المرور:</translation>
    </message>
    <message>
        <source>Folder on the server:</source>
        <translation>المجلد على الخادم:</translation>
    </message>
    <message>
        <source>optional, such as documents/sync</source>
        <translation>documents/sync (اختياري)</translation>
    </message>
    <message>
        <source>Store name:</source>
        <translation>اسم المخزن:</translation>
    </message>
    <message>
        <source>Without HTTPS, others on the network can read the password and your notes.</source>
        <translation>من دون HTTPS، يستطيع آخرون على الشبكة قراءة كلمة المرور وملاحظاتك.</translation>
    </message>
    <message>
        <source>Forget the password of “%1”?</source>
        <translation>هل تريد نسيان كلمة مرور «⁨%1⁩»؟</translation>
    </message>
    <message>
        <source>No location of the list uses this password any more.</source>
        <translation>لم يعد أي موقع في القائمة يستخدم كلمة المرور هذه.</translation>
    </message>
    <message>
        <source>Forget</source>
        <translation>نسيان</translation>
    </message>
    <message>
        <source>Keep</source>
        <translation>احتفاظ</translation>
    </message>
    <message numerus="yes">
        <source>%1 more items of “%2” could not be synchronized with “%3”.</source>
        <translation>
            <numerusform>تعذرت مزامنة %1 عنصر آخر من «⁨%2⁩» مع «⁨%3⁩».</numerusform>
            <numerusform>تعذرت مزامنة %1 عنصر آخر من «⁨%2⁩» مع «⁨%3⁩».</numerusform>
            <numerusform>تعذرت مزامنة %1 عنصرين آخرين من «⁨%2⁩» مع «⁨%3⁩».</numerusform>
            <numerusform>تعذرت مزامنة %1 عناصر أخرى من «⁨%2⁩» مع «⁨%3⁩».</numerusform>
            <numerusform>تعذرت مزامنة %1 عنصرًا آخر من «⁨%2⁩» مع «⁨%3⁩».</numerusform>
            <numerusform>تعذرت مزامنة %1 عنصر آخر من «⁨%2⁩» مع «⁨%3⁩».</numerusform>
        </translation>
    </message>
    <message>
        <source>More of these, which are not listed: %1.</source>
        <translation>عناصر أخرى من هذه لم تُدرج: ⁨%1⁩.</translation>
    </message>
    <message>
        <source>The password is saved in your keyring and nowhere else.</source>
        <translation>تُحفظ كلمة المرور في حلقة مفاتيحك فقط.</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>إلغاء</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>موافق</translation>
    </message>
    <message>
        <source>Folder Location</source>
        <translation>موقع مجلد</translation>
    </message>
    <message>
        <source>A sync store is a package in a folder that all your computers can access, such as one on a shared volume.</source>
        <translation>مخزن المزامنة حزمة في مجلد تصل إليه كل حواسيبك، مثل مجلد على قرص مشترك.</translation>
    </message>
    <message>
        <source>Sync store:</source>
        <translation>مخزن المزامنة:</translation>
    </message>
    <message>
        <source>Sync store</source>
        <translation>مخزن المزامنة</translation>
    </message>
    <message>
        <source>None chosen yet</source>
        <translation>لم يُختر شيء بعد</translation>
    </message>
    <message>
        <source>New…</source>
        <translation>جديد…</translation>
    </message>
    <message>
        <source>Choose…</source>
        <translation>اختيار…</translation>
    </message>
    <message>
        <source>The certificate “%1” of this computer could not be created. Check the permissions of the profile folder.</source>
        <translation>تعذر إنشاء شهادة هذا الحاسوب «⁨%1⁩». تحقق من أذونات مجلد ملف التعريف.</translation>
    </message>
    <message>
        <source>The certificate “%1” of this computer cannot be read: %2. Check its permissions, then turn the server on again.</source>
        <translation>تتعذر قراءة شهادة هذا الحاسوب «⁨%1⁩»: ⁨%2⁩. تحقق من أذوناتها، ثم شغّل الخادم من جديد.</translation>
    </message>
    <message>
        <source>The certificate “%1” of this computer is damaged. Delete it and pair the other computers again.</source>
        <translation>شهادة هذا الحاسوب «⁨%1⁩» تالفة. احذفها واقرن الحواسيب الأخرى من جديد.</translation>
    </message>
    <message>
        <source>“%1” cannot be reached. Check that the computer is on and lets other computers synchronize.</source>
        <translation>يتعذر الوصول إلى «⁨%1⁩». تحقق من أن الحاسوب يعمل وأنه يسمح للحواسيب الأخرى بالمزامنة.</translation>
    </message>
    <message>
        <source>The connection to “%1” was lost. Try again.</source>
        <translation>انقطع الاتصال بـ «⁨%1⁩». أعد المحاولة.</translation>
    </message>
    <message>
        <source>This computer is in no network. Port: %1</source>
        <translation>هذا الحاسوب غير متصل بأي شبكة. المنفذ: ⁨%1⁩</translation>
    </message>
    <message>
        <source>Address: %1. Port: %2</source>
        <translation>العنوان: ⁨%1⁩. المنفذ: ⁨%2⁩</translation>
    </message>
    <message>
        <source>Other computers list this one as “%1”.</source>
        <translation>تعرض الحواسيب الأخرى هذا الحاسوب باسم «⁨%1⁩».</translation>
    </message>
    <message>
        <source>It shows a code. Allow it only if the code is the same as here.</source>
        <translation>يعرض ذلك الحاسوب رمزًا. لا تسمح له إلا إذا كان الرمز مطابقًا للرمز المعروض هنا.</translation>
    </message>
    <message>
        <source>It replaces another computer of this name.</source>
        <translation>يحل محل حاسوب آخر بهذا الاسم.</translation>
    </message>
    <message>
        <source>Whether it replaces another computer of this name is unknown, because the keyring cannot be read.</source>
        <translation>من غير المعروف ما إذا كان يحل محل حاسوب آخر بهذا الاسم، لأنه تتعذر قراءة حلقة المفاتيح.</translation>
    </message>
    <message>
        <source>Let “%1” synchronize with this computer?</source>
        <translation>هل تسمح للحاسوب «⁨%1⁩» بالمزامنة مع هذا الحاسوب؟</translation>
    </message>
    <message>
        <source>Allow</source>
        <translation>سماح</translation>
    </message>
    <message>
        <source>Refuse</source>
        <translation>رفض</translation>
    </message>
    <message>
        <source>The server cannot use the port %1. Choose another port. (%2)</source>
        <translation>لا يستطيع الخادم استخدام المنفذ ⁨%1⁩. اختر منفذًا آخر. (⁨%2⁩)</translation>
    </message>
    <message>
        <source>Connect with “%1”?</source>
        <translation>هل تريد الاتصال بالحاسوب «⁨%1⁩»؟</translation>
    </message>
    <message>
        <source>It shows a code. Connect only if the code is the same as here.</source>
        <translation>يعرض ذلك الحاسوب رمزًا. لا تتصل إلا إذا كان الرمز مطابقًا للرمز المعروض هنا.</translation>
    </message>
    <message>
        <source>Connect</source>
        <translation>اتصال</translation>
    </message>
    <message>
        <source>“%1” is not the computer that was paired. If this is intended, remove the location and add it again.</source>
        <translation>«⁨%1⁩» ليس الحاسوب الذي تم الاقتران به. إذا كان ذلك مقصودًا، فأزل الموقع ثم أضفه من جديد.</translation>
    </message>
    <message>
        <source>“%1” is busy with another request. Try again later.</source>
        <translation>«⁨%1⁩» مشغول بطلب آخر. أعد المحاولة لاحقًا.</translation>
    </message>
    <message>
        <source>“%1” does not allow this computer to synchronize. Allow it there and try again.</source>
        <translation>لا يسمح «⁨%1⁩» لهذا الحاسوب بالمزامنة. اسمح بها هناك وأعد المحاولة.</translation>
    </message>
    <message>
        <source>“%1” sent an invalid response. Use the same version of Velmora on both computers.</source>
        <translation>أرسل «⁨%1⁩» استجابة غير صالحة. استخدم إصدار Velmora نفسه على الحاسوبين.</translation>
    </message>
    <message>
        <source>The message is not valid.</source>
        <translation>الرسالة غير صالحة.</translation>
    </message>
    <message>
        <source>The message is too large or has too many parts.</source>
        <translation>الرسالة كبيرة جدًا أو بها أجزاء كثيرة جدًا.</translation>
    </message>
    <message>
        <source>The computer “%1” cannot read or write its sync store. Check its disk.</source>
        <translation>لا يستطيع الحاسوب «⁨%1⁩» القراءة من مخزن مزامنته أو الكتابة فيه. تحقق من قرصه.</translation>
    </message>
    <message>
        <source>Folder Access</source>
        <translation>الوصول إلى المجلدات</translation>
    </message>
    <message>
        <source>Velmora can access these folders:</source>
        <translation>يستطيع Velmora الوصول إلى هذه المجلدات:</translation>
    </message>
    <message>
        <source>Folders that Velmora can access</source>
        <translation>المجلدات التي يستطيع Velmora الوصول إليها</translation>
    </message>
    <message>
        <source>Add…</source>
        <translation>إضافة…</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>إغلاق</translation>
    </message>
    <message>
        <source>Computers on the local network:</source>
        <translation>الحواسيب في الشبكة المحلية:</translation>
    </message>
    <message>
        <source>Computers on the local network</source>
        <translation>الحواسيب في الشبكة المحلية</translation>
    </message>
    <message>
        <source>No computer has been found yet. Turn on its server there under “Direct Connections…”, or enter its address.</source>
        <translation>لم يُعثر على أي حاسوب بعد. شغِّل خادمه هناك من «الاتصالات المباشرة…»، أو أدخل عنوانه.</translation>
    </message>
    <message>
        <source>Host:</source>
        <translation>المضيف:</translation>
    </message>
    <message>
        <source>computer.local</source>
        <translation>computer.local</translation>
    </message>
    <message>
        <source>Import Databases</source>
        <translation>استيراد قواعد البيانات</translation>
    </message>
    <message>
        <source>Import databases from:</source>
        <translation>استيراد قواعد البيانات من:</translation>
    </message>
    <message>
        <source>There is no location to import from yet.</source>
        <translation>لا يوجد موقع للاستيراد منه بعد.</translation>
    </message>
    <message>
        <source>Continue</source>
        <translation>متابعة</translation>
    </message>
    <message>
        <source>Databases that this computer does not have:</source>
        <translation>قواعد البيانات غير الموجودة على هذا الحاسوب:</translation>
    </message>
    <message>
        <source>Databases to import</source>
        <translation>قواعد البيانات المراد استيرادها</translation>
    </message>
    <message>
        <source>This location contains no database that this computer does not have.</source>
        <translation>لا يحتوي هذا الموقع على قواعد بيانات غير موجودة على هذا الحاسوب.</translation>
    </message>
    <message>
        <source>Warning</source>
        <translation>تحذير</translation>
    </message>
    <message>
        <source>Back</source>
        <translation>رجوع</translation>
    </message>
    <message>
        <source>Import</source>
        <translation>استيراد</translation>
    </message>
    <message>
        <source>Direct Connections</source>
        <translation>الاتصالات المباشرة</translation>
    </message>
    <message>
        <source>Let other computers synchronize with this one</source>
        <translation>السماح للحواسيب الأخرى بالمزامنة مع هذا الحاسوب</translation>
    </message>
    <message>
        <source>Computers that may connect:</source>
        <translation>الحواسيب المسموح لها بالاتصال:</translation>
    </message>
    <message>
        <source>Computers that may connect</source>
        <translation>الحواسيب المسموح لها بالاتصال</translation>
    </message>
    <message>
        <source>When a computer connects for the first time, you are asked for permission. Open this window again to see it in the list.</source>
        <translation>عندما يتصل حاسوب لأول مرة، يُطلب إذنك. افتح هذه النافذة من جديد لتراه في القائمة.</translation>
    </message>
    <message>
        <source>Revoke</source>
        <translation>سحب الإذن</translation>
    </message>
    <message>
        <source>Prevent the selected computer from connecting.</source>
        <translation>منع الحاسوب المحدد من الاتصال.</translation>
    </message>
    <message>
        <source>A computer that may connect can read and change the ticked databases. New databases are ticked.</source>
        <translation>يستطيع الحاسوب المسموح له بالاتصال قراءة قواعد البيانات المعلَّمة وتغييرها. قواعد البيانات الجديدة معلَّمة.</translation>
    </message>
    <message>
        <source>Databases that other computers can read and change</source>
        <translation>قواعد البيانات التي تستطيع الحواسيب الأخرى قراءتها وتغييرها</translation>
    </message>
    <message>
        <source>Last connected: %1</source>
        <translation>آخر اتصال: ⁨%1⁩</translation>
    </message>
    <message>
        <source>Last connected: unknown</source>
        <translation>آخر اتصال: غير معروف</translation>
    </message>
    <message>
        <source>“%1” belongs to a database that is not served.</source>
        <translation>ينتمي «⁨%1⁩» إلى قاعدة بيانات غير متاحة.</translation>
    </message>
    <message>
        <source>“%1” does not serve this database. Tick it there under “Direct Connections…” in Sync Preferences, and synchronize again.</source>
        <translation>لا يتيح «⁨%1⁩» قاعدة البيانات هذه. علِّمها هناك من «الاتصالات المباشرة…» في تفضيلات المزامنة، ثم أجرِ المزامنة من جديد.</translation>
    </message>
    <message>
        <source>Prevent “%1” from connecting?</source>
        <translation>هل تريد منع «⁨%1⁩» من الاتصال؟</translation>
    </message>
    <message>
        <source>The record “%1” is too large and was not read. Move it to another folder if it does not belong there.</source>
        <translation>حجم القيد «⁨%1⁩» كبير جدًا، فلم يُقرأ. انقله إلى مجلد آخر إن لم يكن هذا مكانه.</translation>
    </message>
    <message>
        <source>The record “%1” was created by a newer version of Velmora. Update Velmora to read it.</source>
        <translation>أُنشئ القيد «⁨%1⁩» بإصدار أحدث من Velmora. حدِّث Velmora لقراءته.</translation>
    </message>
    <message>
        <source>“%1” is not a valid identifier of a note. Please report this as an error of Velmora.</source>
        <translation>«⁨%1⁩» ليس معرِّف ملاحظة صالحًا. نرجو الإبلاغ عن ذلك بوصفه خطأ في Velmora.</translation>
    </message>
    <message>
        <source>The edits of “%1” have changed meanwhile, so none was removed. Compare them again, then decide.</source>
        <translation>تغيرت تعديلات «⁨%1⁩» في هذه الأثناء، فلم يُزل أي منها. قارنها من جديد ثم قرِّر.</translation>
    </message>
    <message>
        <source>The note “%1” has changed meanwhile. Select it again.</source>
        <translation>تغيرت الملاحظة «⁨%1⁩» في هذه الأثناء. حدِّدها من جديد.</translation>
    </message>
    <message>
        <source>The note “%1” is too long to be synchronized. Divide it into several notes.</source>
        <translation>الملاحظة «⁨%1⁩» أطول من أن تُزامَن. قسِّمها إلى عدة ملاحظات.</translation>
    </message>
    <message>
        <source>The name of the database is too long. Enter a shorter one.</source>
        <translation>اسم قاعدة البيانات طويل جدًا. أدخل اسمًا أقصر.</translation>
    </message>
    <message>
        <source>“%1” is not a valid identifier of a database. Untick the location for this database.</source>
        <translation>«⁨%1⁩» ليس معرِّف قاعدة بيانات صالحًا. ألغِ تعليم الموقع لقاعدة البيانات هذه.</translation>
    </message>
    <message>
        <source>The database “%1” exists neither on this computer nor at the location. Synchronize on the computer that has it, then here.</source>
        <translation>قاعدة البيانات «⁨%1⁩» غير موجودة على هذا الحاسوب ولا في الموقع. زامن على الحاسوب الذي يحتوي عليها ثم هنا.</translation>
    </message>
    <message>
        <source>“%1” was cleaned up at “%2”.</source>
        <translation>تم تنظيف «⁨%1⁩» في «⁨%2⁩».</translation>
    </message>
    <message>
        <source>“%1” was synchronized with “%2”.</source>
        <translation>تمت مزامنة «⁨%1⁩» مع «⁨%2⁩».</translation>
    </message>
    <message>
        <source>“%1” could not be cleaned up at “%2”: %3</source>
        <translation>تعذر تنظيف «⁨%1⁩» في «⁨%2⁩»: ⁨%3⁩</translation>
    </message>
    <message>
        <source>“%1” could not be synchronized with “%2”: %3</source>
        <translation>تعذرت مزامنة «⁨%1⁩» مع «⁨%2⁩»: ⁨%3⁩</translation>
    </message>
    <message>
        <source>“%1” could not be cleaned up because the database is not on this computer. Import the database, then try again.</source>
        <translation>تعذر تنظيف «⁨%1⁩» لأن قاعدة البيانات ليست على هذا الحاسوب. استورد قاعدة البيانات، ثم أعد المحاولة.</translation>
    </message>
    <message>
        <source>Some items of “%1” could not be synchronized with “%2”: %3</source>
        <translation>تعذرت مزامنة بعض عناصر «⁨%1⁩» مع «⁨%2⁩»: ⁨%3⁩</translation>
    </message>
    <message>
        <source>Cleaning up “%1” at “%2”…</source>
        <translation>يجري تنظيف «⁨%1⁩» في «⁨%2⁩»…</translation>
    </message>
    <message>
        <source>Synchronizing “%1” with “%2”…</source>
        <translation>تجري مزامنة «⁨%1⁩» مع «⁨%2⁩»…</translation>
    </message>
    <message>
        <source>No web browser could be opened to sign in to Dropbox. Set a default web browser and try again.</source>
        <translation>تعذر فتح متصفح ويب لتسجيل الدخول إلى Dropbox. عيِّن متصفحًا مبدئيًا وأعد المحاولة.</translation>
    </message>
    <message>
        <source>Dropbox cannot be used because no application key is configured. Velmora’s documentation describes how to set one.</source>
        <translation>لا يمكن استخدام Dropbox لأنه لم يُضبط مفتاح تطبيق. تشرح وثائق Velmora كيفية ضبطه.</translation>
    </message>
    <message>
        <source>The port “%1” configured for Dropbox is not valid. Use a number from 0 to 65535.</source>
        <translation>المنفذ «⁨%1⁩» المضبوط لـ Dropbox غير صالح. استخدم عددًا من 0 إلى 65535.</translation>
    </message>
    <message>
        <source>The address “%1” configured for Dropbox is not secure. Use an https address.</source>
        <translation>العنوان «⁨%1⁩» المضبوط لـ Dropbox غير آمن. استخدم عنوان https.</translation>
    </message>
    <message>
        <source>Velmora is not signed in to Dropbox as “%1”. Edit the location to sign in.</source>
        <translation>لم يسجل Velmora الدخول إلى Dropbox باسم «⁨%1⁩». حرِّر الموقع لتسجيل الدخول.</translation>
    </message>
    <message>
        <source>You signed in to Dropbox as “%1”, but this location belongs to “%2”. Sign out of Dropbox in your browser, edit the location again, and sign in as “%2”.</source>
        <translation>سجلت الدخول إلى Dropbox باسم «⁨%1⁩»، لكن هذا الموقع يخص «⁨%2⁩». سجِّل الخروج من Dropbox في متصفحك، وحرِّر الموقع من جديد، وسجِّل الدخول باسم «⁨%2⁩».</translation>
    </message>
    <message>
        <source>The sign-in to Dropbox as “%1” is no longer valid. Edit the location to sign in again.</source>
        <translation>لم يعد تسجيل الدخول إلى Dropbox باسم «⁨%1⁩» صالحًا. حرِّر الموقع لتسجيل الدخول من جديد.</translation>
    </message>
    <message>
        <source>The response of the web browser cannot be received: %1. Quit the program that uses this port, then sign in again.</source>
        <translation>يتعذر استلام استجابة متصفح الويب: ⁨%1⁩. أغلق البرنامج الذي يستخدم هذا المنفذ، ثم سجّل الدخول من جديد.</translation>
    </message>
    <message>
        <source>The sign-in to Dropbox timed out. Try again.</source>
        <translation>انتهت مهلة تسجيل الدخول إلى Dropbox. أعد المحاولة.</translation>
    </message>
    <message>
        <source>You can close this window now and return to Velmora.</source>
        <translation>يمكنك الآن إغلاق هذه النافذة والعودة إلى Velmora.</translation>
    </message>
    <message>
        <source>Velmora has not requested this page. Close it, and connect to Dropbox again in Velmora.</source>
        <translation>لم يطلب Velmora هذه الصفحة. أغلقها، واتصل بـ Dropbox من جديد في Velmora.</translation>
    </message>
    <message>
        <source>Access to Dropbox was denied in the web browser. Try again and allow it.</source>
        <translation>رُفض الوصول إلى Dropbox في متصفح الويب. أعد المحاولة واسمح به.</translation>
    </message>
    <message>
        <source>The web browser sent an invalid response. Sign in again.</source>
        <translation>أرسل متصفح الويب استجابة غير صالحة. سجِّل الدخول من جديد.</translation>
    </message>
    <message>
        <source>The Dropbox of “%1” is full. Delete files there.</source>
        <translation>مساحة Dropbox الخاصة بالحساب «⁨%1⁩» ممتلئة. احذف ملفات منها.</translation>
    </message>
    <message>
        <source>Dropbox rejected the sign-in. Try again.</source>
        <translation>رفض Dropbox تسجيل الدخول. أعد المحاولة.</translation>
    </message>
    <message>
        <source>Velmora has no access to the folder “%1”. Grant it under “Folder Access…”.</source>
        <translation>لا يملك Velmora حق الوصول إلى المجلد «⁨%1⁩». امنحه من «الوصول إلى المجلدات…».</translation>
    </message>
    <message>
        <source>The profile “%1” is empty, although it has been used. Restore it from a backup or use another profile.</source>
        <translation>ملف التعريف «⁨%1⁩» فارغ مع أنه قد استُخدم. استعده من نسخة احتياطية أو استخدم ملف تعريف آخر.</translation>
    </message>
    <message>
        <source>The folder “%1” of the profile cannot be read: %2. Check its disk and its permissions, then try again.</source>
        <translation>تتعذر قراءة المجلد «⁨%1⁩» الخاص بملف التعريف: ⁨%2⁩. تحقق من القرص والأذونات، ثم أعد المحاولة.</translation>
    </message>
    <message>
        <source>The sync locations of the damaged profile “%1” cannot be read. Add them again in Sync Preferences, then import your databases.</source>
        <translation>تتعذر قراءة مواقع المزامنة من ملف التعريف التالف «⁨%1⁩». أضفها من جديد في تفضيلات المزامنة، ثم استورد قواعد بياناتك.</translation>
    </message>
    <message>
        <source>Some changes cannot be read from the damaged profile “%1” and may be missing now. Synchronize, so that they are read from the locations. The damaged files are kept in the folder “Damaged Profiles”.</source>
        <translation>تعذرت قراءة بعض التغييرات من ملف التعريف التالف «⁨%1⁩»، وقد تكون مفقودة الآن. زامن لكي تُقرأ من المواقع. تُحفظ الملفات التالفة في المجلد «Damaged Profiles».</translation>
    </message>
    <message>
        <source>Damaged notes: %1.</source>
        <translation>ملاحظات تالفة: %1.</translation>
    </message>
    <message>
        <source>Changes that were read from the damaged profile: %1</source>
        <translation>تغييرات قُرئت من ملف التعريف التالف: %1</translation>
    </message>
    <message>
        <source>The profile is missing from the folder “%1”. Restore it from a backup or use another profile.</source>
        <translation>ملف التعريف مفقود من المجلد «⁨%1⁩». استعده من نسخة احتياطية أو استخدم ملف تعريف آخر.</translation>
    </message>
    <message>
        <source>There is no space left on the disk with the profile “%1”. Delete files that you no longer need, then try again.</source>
        <translation>لا توجد مساحة على القرص الذي عليه ملف التعريف «⁨%1⁩». احذف ملفات لم تعد بحاجة إليها، ثم أعد المحاولة.</translation>
    </message>
    <message>
        <source>No backup of the profile “%1” could be made, and Velmora tries again after an hour. %2</source>
        <translation>تعذر إنشاء نسخة احتياطية من ملف التعريف «⁨%1⁩»، وسيعيد Velmora المحاولة بعد ساعة. ⁨%2⁩</translation>
    </message>
    <message>
        <source>Its size is %1, and all backups together may have %2. Quit Velmora and copy the profile yourself.</source>
        <translation>حجمه ⁨%1⁩، ولا يجوز أن يتجاوز حجم النسخ الاحتياطية كلها ⁨%2⁩. أنهِ Velmora وانسخ ملف التعريف بنفسك.</translation>
    </message>
    <message>
        <source>The disk has only %1 left, and %2 are needed. Delete files that you no longer need.</source>
        <translation>لم يبقَ على القرص سوى ⁨%1⁩، والمطلوب ⁨%2⁩. احذف ملفات لم تعد بحاجة إليها.</translation>
    </message>
    <message>
        <source>The copy is not complete. Check the disk.</source>
        <translation>النسخة غير كاملة. تحقق من القرص.</translation>
    </message>
    <message>
        <source>The folder “%1” cannot be written: %2. Check its permissions and its disk.</source>
        <translation>تتعذر الكتابة في المجلد «⁨%1⁩»: ⁨%2⁩. تحقق من أذوناته ومن قرصه.</translation>
    </message>
    <message>
        <source>The profile “%1” has damaged or lost notes: %2. Synchronize, so that they are read again from the locations. If this message appears again, check the texts of the damaged notes and edit them, and synchronize on the other computers. The backups that have all notes intact are kept.</source>
        <translation>في ملف التعريف «⁨%1⁩» ملاحظات تالفة أو مفقودة: ⁨%2⁩. أجرِ المزامنة لتُقرأ من المواقع مجددًا. إذا ظهرت هذه الرسالة من جديد، فراجع نصوص الملاحظات التالفة وحرِّرها، وزامن على الحواسيب الأخرى. يُحتفظ بالنسخ الاحتياطية التي توجد فيها كل الملاحظات سليمة.</translation>
    </message>
    <message>
        <source>The backup “%1” is damaged. Use another backup.</source>
        <translation>النسخة الاحتياطية «⁨%1⁩» تالفة. استخدم نسخة احتياطية أخرى.</translation>
    </message>
    <message>
        <source>The profile “%1” has no intact backup. Use another profile, and get your notes from the locations with which you have synchronized.</source>
        <translation>ليس لملف التعريف «⁨%1⁩» نسخة احتياطية سليمة. استخدم ملف تعريف آخر، واجلب ملاحظاتك من المواقع التي زامنت معها.</translation>
    </message>
    <message>
        <source>The profile “%1” could not be replaced: %2. Check its disk and its permissions, then try again.</source>
        <translation>تعذر استبدال ملف التعريف «⁨%1⁩»: ⁨%2⁩. تحقق من القرص والأذونات، ثم أعد المحاولة.</translation>
    </message>
    <message>
        <source>%1 Files of the damaged profile were moved to “%2” and could not be moved back. Check the disk, then try again.</source>
        <translation>⁨%1⁩ نُقلت ملفات من ملف التعريف التالف إلى «⁨%2⁩» وتعذرت إعادتها. تحقق من القرص ثم أعد المحاولة.</translation>
    </message>
    <message>
        <source>Earlier versions:</source>
        <translation>الإصدارات السابقة:</translation>
    </message>
    <message>
        <source>Backup:</source>
        <translation>نسخة احتياطية:</translation>
    </message>
    <message>
        <source>This version of “%1” is no longer kept. Choose another version.</source>
        <translation>لم يعد هذا الإصدار من «⁨%1⁩» محفوظًا. اختر إصدارًا آخر.</translation>
    </message>
    <message numerus="yes">
        <source>The location removes %1 of %2 notes. Nothing was changed. Synchronize again to decide what happens to these notes.</source>
        <translation>
            <numerusform>يزيل الموقع %1 من أصل %2 ملاحظة. لم يتغير شيء. أجرِ المزامنة من جديد لتقرر مصير هذه الملاحظات.</numerusform>
            <numerusform>يزيل الموقع %1 من أصل %2 ملاحظة. لم يتغير شيء. أجرِ المزامنة من جديد لتقرر مصير هذه الملاحظات.</numerusform>
            <numerusform>يزيل الموقع %1 من أصل %2 ملاحظتين. لم يتغير شيء. أجرِ المزامنة من جديد لتقرر مصير هذه الملاحظات.</numerusform>
            <numerusform>يزيل الموقع %1 من أصل %2 ملاحظات. لم يتغير شيء. أجرِ المزامنة من جديد لتقرر مصير هذه الملاحظات.</numerusform>
            <numerusform>يزيل الموقع %1 من أصل %2 ملاحظة. لم يتغير شيء. أجرِ المزامنة من جديد لتقرر مصير هذه الملاحظات.</numerusform>
            <numerusform>يزيل الموقع %1 من أصل %2 ملاحظة. لم يتغير شيء. أجرِ المزامنة من جديد لتقرر مصير هذه الملاحظات.</numerusform>
        </translation>
    </message>
    <message>
        <source>The location lists the record “%1” but does not return it. Check the server or the disk.</source>
        <translation>يُدرج الموقع القيد «⁨%1⁩» لكنه لا يعيده. تحقق من الخادم أو القرص.</translation>
    </message>
    <message>
        <source>The location lists the record “%1” but does not return it. This computer writes its contents again.</source>
        <translation>يُدرج الموقع القيد «⁨%1⁩» لكنه لا يعيده. سيكتب هذا الحاسوب محتواه من جديد.</translation>
    </message>
    <message>
        <source>A change in “%1” exceeds the limits of a record and was not sent. Please report this as an error of Velmora.</source>
        <translation>يتجاوز تغيير في «⁨%1⁩» حدود القيد فلم يُرسل. نرجو الإبلاغ عن ذلك بوصفه خطأ في Velmora.</translation>
    </message>
    <message>
        <source>The name of the database “%1” is not valid and was not sent. Rename the database and synchronize again.</source>
        <translation>اسم قاعدة البيانات «⁨%1⁩» غير صالح فلم يُرسل. أعد تسمية قاعدة البيانات وأجرِ المزامنة من جديد.</translation>
    </message>
    <message>
        <source>The note “%1” is damaged on this computer and was not sent. If synchronizing again does not repair it, check its text, edit it and synchronize.</source>
        <translation>الملاحظة «⁨%1⁩» تالفة على هذا الحاسوب فلم تُرسل. إذا لم تصلحها المزامنة من جديد، فراجع نصها وحرِّرها ثم أجرِ المزامنة.</translation>
    </message>
    <message>
        <source>“%1” was damaged on this computer and was read again from the location.</source>
        <translation>كانت «⁨%1⁩» تالفة على هذا الحاسوب وقُرئت من الموقع مجددًا.</translation>
    </message>
    <message>
        <source>This computer has lost changes of notes that are not at the location any more either: %1. Synchronize on the other computers, then here. If that does not bring them back, restore a backup of the profile.</source>
        <translation>فقد هذا الحاسوب تغييرات في ملاحظات لم تعد في الموقع أيضًا: %1. زامن على الحواسيب الأخرى ثم هنا. إذا لم تعد بذلك، فاستعد نسخة احتياطية من ملف التعريف.</translation>
    </message>
    <message>
        <source>This computer has lost changes of notes that were not found in any record of the location either: %1. They are not reported again, and their backups are kept as long as others. Synchronize on the other computers, then here, or restore a backup of the profile soon.</source>
        <translation>فقد هذا الحاسوب تغييرات في ملاحظات لم يُعثر عليها في أي قيد في الموقع أيضًا: %1. لن يُبلَّغ عنها مرة أخرى، وتُحفظ نسخها الاحتياطية المدة نفسها كغيرها. زامن على الحواسيب الأخرى ثم هنا، أو استعد قريبًا نسخة احتياطية من ملف التعريف.</translation>
    </message>
    <message>
        <source>Databases of other computers that were not added: %1. This computer adds none from direct connections if it has %2 already. To get them, use another location on both computers.</source>
        <translation>قواعد بيانات من حواسيب أخرى لم تُضف: ⁨%1⁩. لا يضيف هذا الحاسوب شيئًا من الاتصالات المباشرة إذا كان لديه ⁨%2⁩ منها. للحصول عليها، استخدم موقعًا آخر على الحاسوبين.</translation>
    </message>
    <message>
        <source>“%1” contains too many files. Clean up the location on another computer, or delete the files that do not belong there.</source>
        <translation>يحتوي «⁨%1⁩» على ملفات كثيرة جدًا. نظِّف الموقع على حاسوب آخر، أو احذف الملفات التي لا تنتمي إليه.</translation>
    </message>
    <message>
        <source>“%1” contains too many databases, or their names are too long. Delete the files of those that are not needed.</source>
        <translation>يحتوي «⁨%1⁩» على قواعد بيانات كثيرة جدًا، أو أسماؤها طويلة جدًا. احذف ملفات القواعد التي لا يحتاج إليها أحد.</translation>
    </message>
    <message>
        <source>The record “%1” has changed while it was read. Synchronize again.</source>
        <translation>تغير القيد «⁨%1⁩» أثناء قراءته. أجرِ المزامنة من جديد.</translation>
    </message>
    <message>
        <source>The records in “%1” were replaced each time before they could be read. Synchronize again.</source>
        <translation>استُبدلت القيود في «⁨%1⁩» في كل مرة قبل أن تُقرأ. أجرِ المزامنة من جديد.</translation>
    </message>
    <message>
        <source>The keyring still contains what belongs to the removed location “%1”. Velmora deletes it when it starts again. (%2)</source>
        <translation>ما زالت حلقة المفاتيح تحتوي على ما يخص الموقع المُزال «⁨%1⁩». سيحذفه Velmora عند تشغيله من جديد. (⁨%2⁩)</translation>
    </message>
    <message>
        <source>“%1” and this computer are not paired: the question was not accepted. Synchronize again in a while, and accept it on both computers.</source>
        <translation>لم يتم الاقتران بين «⁨%1⁩» وهذا الحاسوب: لم يُقبل السؤال. أجرِ المزامنة من جديد بعد قليل، واقبل السؤال على الحاسوبين.</translation>
    </message>
    <message>
        <source>The list of mounted volumes cannot be read: %1. Try again.</source>
        <translation>تتعذر قراءة قائمة الأقراص الموصولة: ⁨%1⁩. أعد المحاولة.</translation>
    </message>
    <message>
        <source>The password for “%1” was not sent, because others on the network could read it. Edit the location: choose HTTPS, or accept that.</source>
        <translation>لم تُرسل كلمة مرور «⁨%1⁩»، لأن آخرين على الشبكة قد يتمكنون من قراءتها. حرِّر الموقع: اختر HTTPS أو اقبل ذلك.</translation>
    </message>
    <message>
        <source>direct connections</source>
        <translation>الاتصالات المباشرة</translation>
    </message>
    <message>
        <source>A schedule of “%1” was missed while Velmora was closed, and is made up for now.</source>
        <translation>فات موعد في الجدول الزمني لـ «⁨%1⁩» عندما كان Velmora مغلقًا، ويُعوَّض الآن.</translation>
    </message>
    <message>
        <source>Waiting to clean up “%1” at “%2”…</source>
        <translation>بانتظار تنظيف «⁨%1⁩» في «⁨%2⁩»…</translation>
    </message>
    <message>
        <source>Waiting to synchronize “%1” with “%2”…</source>
        <translation>بانتظار مزامنة «⁨%1⁩» مع «⁨%2⁩»…</translation>
    </message>
    <message numerus="yes">
        <source>synchronized %1, but %2 items failed</source>
        <translation>
            <numerusform>تمت المزامنة %1، لكن فشل %2 عنصر</numerusform>
            <numerusform>تمت المزامنة %1، لكن فشل %2 عنصر</numerusform>
            <numerusform>تمت المزامنة %1، لكن فشل %2 عنصران</numerusform>
            <numerusform>تمت المزامنة %1، لكن فشلت %2 عناصر</numerusform>
            <numerusform>تمت المزامنة %1، لكن فشل %2 عنصرًا</numerusform>
            <numerusform>تمت المزامنة %1، لكن فشل %2 عنصر</numerusform>
        </translation>
    </message>
    <message>
        <source>Synchronized %1, but some items failed</source>
        <translation>تمت المزامنة ⁨%1⁩، لكن فشلت بعض العناصر</translation>
    </message>
    <message>
        <source>Some items of “%1” could not be synchronized with “%2”. Open the log to see which.</source>
        <translation>تعذرت مزامنة بعض عناصر «⁨%1⁩» مع «⁨%2⁩». افتح السجل لمعرفتها.</translation>
    </message>
    <message>
        <source>Time: %1</source>
        <translation>الوقت: ⁨%1⁩</translation>
    </message>
    <message>
        <source>The list of unsent changes of the database “%1” was wrong. Everything is compared again.</source>
        <translation>كانت قائمة التغييرات غير المرسلة لقاعدة البيانات «⁨%1⁩» خاطئة. تجري مقارنة كل شيء من جديد.</translation>
    </message>
    <message>
        <source>The recorded number of conflicts in the database “%1” is wrong. “velmora verify --repair” counts them again.</source>
        <translation>عدد التعارضات المسجل في قاعدة البيانات «⁨%1⁩» خاطئ. الأمر «velmora verify --repair» يعدها من جديد.</translation>
    </message>
    <message>
        <source>The recorded number of conflicts in the database “%1” was wrong. They were counted again.</source>
        <translation>كان عدد التعارضات المسجل في قاعدة البيانات «⁨%1⁩» خاطئًا. جرى عدها من جديد.</translation>
    </message>
    <message>
        <source>The list of unsent changes of the database “%1” is wrong. “velmora verify --repair” compares everything and sends what the list lacks.</source>
        <translation>قائمة التغييرات غير المرسلة لقاعدة البيانات «⁨%1⁩» خاطئة. الأمر «velmora verify --repair» يقارن كل شيء ويرسل ما ينقص القائمة.</translation>
    </message>
    <message>
        <source>Notes of “%1” that you wanted to keep were removed before you decided, for example by “velmora sync --removals remove”. To restore them, choose “Deleted Notes” in the menu “Edit”.</source>
        <translation>أُزيلت ملاحظات من «⁨%1⁩» أردت الاحتفاظ بها قبل أن تقرر، مثلًا بالأمر «velmora sync --removals remove». لاستعادتها اختر «الملاحظات المحذوفة» من القائمة «تحرير».</translation>
    </message>
    <message>
        <source>Notes of “%1” that you wanted to remove were kept or edited before you decided, for example by “velmora sync --removals keep”. If you do not need them, delete them.</source>
        <translation>احتُفظ بملاحظات من «⁨%1⁩» أردت إزالتها أو حُررت قبل أن تقرر، مثلًا بالأمر «velmora sync --removals keep». إن لم تكن بحاجة إليها فاحذفها.</translation>
    </message>
    <message>
        <source>The old backup “%1” cannot be removed: %2. Check the permissions of its folder and its disk.</source>
        <translation>تتعذر إزالة النسخة الاحتياطية القديمة «⁨%1⁩»: %2. تحقق من أذونات مجلدها ومن قرصها.</translation>
    </message>
    <message>
        <source>The unfinished backup “%1” cannot be removed: %2. Check the permissions of its folder and its disk.</source>
        <translation>تتعذر إزالة النسخة الاحتياطية غير المكتملة «⁨%1⁩»: ⁨%2⁩. تحقق من أذونات مجلدها ومن قرصها.</translation>
    </message>
    <message>
        <source>Files that an interrupted recovery has left in “%1” cannot be removed: %2. Check the permissions of the folder and its disk.</source>
        <translation>تتعذر إزالة الملفات التي تركتها عملية استرداد متوقفة في «⁨%1⁩»: ⁨%2⁩. تحقق من أذونات المجلد ومن قرصه.</translation>
    </message>
    <message>
        <source>An index of the profile “%1” is damaged in a way that cannot be repaired. At its start, Velmora offers to restore a backup.</source>
        <translation>أحد فهارس ملف التعريف «⁨%1⁩» تالف على نحو لا يمكن إصلاحه. يعرض Velmora عند بدء تشغيله استعادة نسخة احتياطية.</translation>
    </message>
    <message>
        <source>In a folder that your computers share</source>
        <translation>في مجلد تتشاركه حواسيبك</translation>
    </message>
    <message>
        <source>On a WebDAV server</source>
        <translation>على خادم WebDAV</translation>
    </message>
    <message>
        <source>On another computer</source>
        <translation>على حاسوب آخر</translation>
    </message>
    <message>
        <source>Choose a computer, or enter its host.</source>
        <translation>اختر حاسوبًا أو أدخل مضيفه.</translation>
    </message>
    <message>
        <source>Select a location to continue.</source>
        <translation>حدّد موقعًا للمتابعة.</translation>
    </message>
    <message>
        <source>Select the databases to import.</source>
        <translation>حدّد قواعد البيانات المراد استيرادها.</translation>
    </message>
    <message>
        <source>Create a sync store or choose one.</source>
        <translation>أنشئ مخزن مزامنة أو اختر واحدًا.</translation>
    </message>
    <message>
        <source>Synchronize “%1” with</source>
        <translation>مزامنة «⁨%1⁩» مع</translation>
    </message>
    <message>
        <source>Schedule of “%1”</source>
        <translation>الجدول الزمني لـ «⁨%1⁩»</translation>
    </message>
    <message>
        <source>“%1” can no longer be restored here. If a sync location has it, import it from there.</source>
        <translation>لم تعد استعادة «⁨%1⁩» ممكنة هنا. إذا كانت في موقع مزامنة، فاستوردها منه.</translation>
    </message>
    <message>
        <source>“%1” belongs to a deleted database and cannot be deleted. Velmora tries again when it starts. Check the permissions.</source>
        <translation>ينتمي «⁨%1⁩» إلى قاعدة بيانات محذوفة ولا يمكن حذفه. يعيد Velmora المحاولة عند بدء التشغيل. تحقق من الأذونات.</translation>
    </message>
    <message>
        <source>Notes</source>
        <translation>ملاحظات</translation>
    </message>
    <message>
        <source>Computers that may connect can read and change it if it is ticked.</source>
        <translation>تستطيع الحواسيب المسموح لها بالاتصال قراءتها وتغييرها إذا كانت معلَّمة.</translation>
    </message>
    <message>
        <source>Computer on the local network</source>
        <translation>حاسوب في الشبكة المحلية</translation>
    </message>
    <message>
        <source>Location to import databases from</source>
        <translation>موقع لاستيراد قواعد البيانات منه</translation>
    </message>
    <message>
        <source>Database that this computer does not have</source>
        <translation>قاعدة بيانات غير موجودة على هذا الحاسوب</translation>
    </message>
</context>
<context>
    <name>Platform</name>
    <message>
        <source>Help (?)</source>
        <translation>مساعدة (?)</translation>
    </message>
    <message>
        <source>Open the guide (%1)</source>
        <translation>فتح الدليل (%1)</translation>
    </message>
    <message>
        <source>Further failures: %1</source>
        <translation>حالات فشل أخرى: ⁨%1⁩</translation>
    </message>
    <message>
        <source>No file manager could be started. Install one, or open the folder “%1” in another program.</source>
        <translation>تعذر تشغيل مدير ملفات. ثبِّت واحدًا، أو افتح المجلد «⁨%1⁩» في برنامج آخر.</translation>
    </message>
    <message>
        <source>“%1” does not exist. Check whether it was moved or renamed, and whether its volume is connected.</source>
        <translation>«⁨%1⁩» غير موجود. تحقق مما إذا كان قد نُقل أو أُعيدت تسميته، ومن أن القرص موصول.</translation>
    </message>
    <message>
        <source>Check the permissions of the file and the space on the disk.</source>
        <translation>تحقق من أذونات الملف ومن المساحة على القرص.</translation>
    </message>
    <message>
        <source>The settings in the file “%1” cannot be read. Check the permissions of the file.</source>
        <translation>تتعذر قراءة الإعدادات في الملف «⁨%1⁩». تحقق من أذونات الملف.</translation>
    </message>
    <message>
        <source>The setting could not be saved in the file “%1”. It is lost when %2 ends.</source>
        <translation>تعذر حفظ الإعداد في الملف «⁨%1⁩». سيُفقد عند إنهاء ⁨%2⁩.</translation>
    </message>
    <message>
        <source>No password service is running on this computer.</source>
        <translation>لا تعمل أي خدمة لكلمات المرور على هذا الحاسوب.</translation>
    </message>
    <message>
        <source>The output could not be written. Check the disk or the program that receives it, then try again.</source>
        <translation>تعذرت كتابة المخرجات. تحقق من القرص أو من البرنامج الذي يستقبلها، ثم أعد المحاولة.</translation>
    </message>
    <message>
        <source>The saved password could not be read. Start or unlock the password service, then try again.</source>
        <translation>تعذرت قراءة كلمة المرور المحفوظة. شغِّل خدمة كلمات المرور أو افتح قفلها، ثم أعد المحاولة.</translation>
    </message>
    <message>
        <source>A saved password or permission could not be deleted. Unlock the keyring and try again.</source>
        <translation>تعذر حذف كلمة مرور محفوظة أو إذن محفوظ. افتح قفل حلقة المفاتيح وأعد المحاولة.</translation>
    </message>
    <message>
        <source>The keyring is locked.</source>
        <translation>حلقة المفاتيح مقفلة.</translation>
    </message>
    <message>
        <source>The name “%1” cannot be looked up in the local network, because the service Avahi does not respond (%2). Start it and try again.</source>
        <translation>لا يمكن البحث عن الاسم «⁨%1⁩» في الشبكة المحلية، لأن الخدمة Avahi لا تستجيب (⁨%2⁩). شغِّلها وأعد المحاولة.</translation>
    </message>
    <message>
        <source>No computer of the local network has responded to the name “%1”. Check that the computer is on and in the same network.</source>
        <translation>لم يستجب أي حاسوب في الشبكة المحلية للاسم «⁨%1⁩». تحقق من أن الحاسوب يعمل وأنه في الشبكة نفسها.</translation>
    </message>
    <message>
        <source>The password service failed. To restart it, log out and log in again.</source>
        <translation>فشلت خدمة كلمات المرور. لتشغيلها من جديد، سجِّل الخروج ثم الدخول.</translation>
    </message>
    <message>
        <source>Passwords cannot be saved. They are kept until you quit %1. To save them, start or unlock the password service, and enter them again.</source>
        <translation>يتعذر حفظ كلمات المرور. ستبقى إلى أن تنهي ⁨%1⁩. لحفظها، شغِّل خدمة كلمات المرور أو افتح قفلها، ثم أدخلها من جديد.</translation>
    </message>
    <message>
        <source>yesterday at %1</source>
        <translation>أمس الساعة ⁨%1⁩</translation>
    </message>
    <message>
        <source>today at %1</source>
        <translation>اليوم الساعة ⁨%1⁩</translation>
    </message>
    <message>
        <source>tomorrow at %1</source>
        <translation>غدًا الساعة ⁨%1⁩</translation>
    </message>
    <message>
        <source>The file “%1” could not be written. Check its permissions and the space on its disk.</source>
        <translation>تعذرت الكتابة في الملف «⁨%1⁩». تحقق من أذوناته ومن المساحة على قرصه.</translation>
    </message>
    <message>
        <source>The file “%1” could not be read. Check its permissions and its disk.</source>
        <translation>تعذرت قراءة الملف «⁨%1⁩». تحقق من أذوناته ومن قرصه.</translation>
    </message>
    <message>
        <source>The folder “%1” could not be created. Check the permissions of the folder that contains it, or choose another one.</source>
        <translation>تعذر إنشاء المجلد «⁨%1⁩». تحقق من أذونات المجلد الذي يحتويه، أو اختر مجلدًا آخر.</translation>
    </message>
    <message>
        <source>The folder “%1” could not be read. Check its permissions and its disk.</source>
        <translation>تعذرت قراءة المجلد «⁨%1⁩». تحقق من أذوناته ومن قرصه.</translation>
    </message>
    <message>
        <source>“%1” could not be removed. Check the permissions of its folder and its disk.</source>
        <translation>تعذرت إزالة «⁨%1⁩». تحقق من أذونات مجلده ومن قرصه.</translation>
    </message>
    <message>
        <source>“%1” cannot be reached. Check the permissions of the folders that contain it and its disk.</source>
        <translation>يتعذر الوصول إلى «⁨%1⁩». تحقق من أذونات المجلدات التي تحتويه ومن قرصه.</translation>
    </message>
    <message>
        <source>The database “%1” cannot be read (%2). Try again. If that fails, check the disk and the permissions of the file.</source>
        <translation>تتعذر قراءة قاعدة البيانات «⁨%1⁩» (⁨%2⁩). أعد المحاولة. إذا لم ينجح ذلك، فتحقق من القرص ومن أذونات الملف.</translation>
    </message>
    <message>
        <source>The system cannot start another thread. Quit programs that you do not need, then try again.</source>
        <translation>لا يستطيع النظام بدء خيط تنفيذ آخر. أغلق البرامج التي لا تحتاج إليها، ثم أعد المحاولة.</translation>
    </message>
</context>
</TS>
