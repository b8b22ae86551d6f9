<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en" sourcelanguage="en">
<context>
    <name>NavigationBar</name>
    <message numerus="yes">
        <source>%n unread</source>
        <translation>
            <numerusform>%n unread</numerusform>
            <numerusform>%n unread</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>TimeGroups</name>
    <message>
        <source>%1 Month</source>
        <translation>%3</translation>
    </message>
    <message>
        <source>%1 Year %2 Month</source>
        <translation>%3 %1</translation>
    </message>
</context>
<context>
    <name>TimeTexts</name>
    <message>
        <source>yesterday</source>
        <translation>Yesterday</translation>
    </message>
    <message>
        <source>%1month%2day</source>
        <translation>%2 %3</translation>
    </message>
</context>
<context>
    <name>DeleteFileDialog</name>
    <message numerus="yes">
        <source>Are you sure to delete %n file(s) ?</source>
        <translation>
            <numerusform>Are you sure to delete %n file ?</numerusform>
            <numerusform>Are you sure to delete %n files ?</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>RemoveRecordDialog</name>
    <message numerus="yes">
        <source>Are you sure to remove %n record(s) ?</source>
        <translation>
            <numerusform>Are you sure to remove %n record ?</numerusform>
            <numerusform>Are you sure to remove %n records ?</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>TransferTexts</name>
    <message numerus="yes">
        <source>%n minute(s) left</source>
        <translation>
            <numerusform>%n minute left</numerusform>
            <numerusform>%n minutes left</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n hour(s) left</source>
        <translation>
            <numerusform>%n hour left</numerusform>
            <numerusform>%n hours left</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>ZelBoxRecentFileTitleWidget</name>
    <message numerus="yes">
        <source>%n unread</source>
        <translation>
            <numerusform>%n unread</numerusform>
            <numerusform>%n unread</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>OpeningNotices</name>
    <message numerus="yes">
        <source>At most %n documents are opened at once.</source>
        <translation>
            <numerusform>At most %n document is opened at once.</numerusform>
            <numerusform>At most %n documents are opened at once.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>RecentCommands</name>
    <message numerus="yes">
        <source>%n document(s) were removed from the list.</source>
        <translation>
            <numerusform>%n document was removed from the list.</numerusform>
            <numerusform>%n documents were removed from the list.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Undo brings back %n of them, on this device only.</source>
        <translation>
            <numerusform>Undo brings back one of them, on this device only.</numerusform>
            <numerusform>Undo brings back %n of them, on this device only.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n document(s) are back on the list.</source>
        <translation>
            <numerusform>%n document is back on the list.</numerusform>
            <numerusform>%n documents are back on the list.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n file(s) could not be deleted.</source>
        <translation>
            <numerusform>%n file could not be deleted.</numerusform>
            <numerusform>%n files could not be deleted.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n file(s) were moved to the recycle bin.</source>
        <translation>
            <numerusform>%n file was moved to the recycle bin.</numerusform>
            <numerusform>%n files were moved to the recycle bin.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n file(s) could not be brought back.</source>
        <translation>
            <numerusform>%n file could not be brought back.</numerusform>
            <numerusform>%n files could not be brought back.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n file(s) are back.</source>
        <translation>
            <numerusform>%n file is back.</numerusform>
            <numerusform>%n files are back.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n document(s) were left out: they are not on this device.</source>
        <translation>
            <numerusform>%n document was left out: it is not on this device.</numerusform>
            <numerusform>%n documents were left out: they are not on this device.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>CloudDocNotices</name>
    <message numerus="yes">
        <source>%n item(s) were moved.</source>
        <translation>
            <numerusform>%n item was moved.</numerusform>
            <numerusform>%n items were moved.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n item(s) were moved to “%1”.</source>
        <translation>
            <numerusform>%n item was moved to “%1”.</numerusform>
            <numerusform>%n items were moved to “%1”.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n item(s) were moved to the recycle bin.</source>
        <translation>
            <numerusform>%n item was moved to the recycle bin.</numerusform>
            <numerusform>%n items were moved to the recycle bin.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>CloudProblems</name>
    <message numerus="yes">
        <source>%n item(s) could not be moved.</source>
        <translation>
            <numerusform>%n item could not be moved.</numerusform>
            <numerusform>%n items could not be moved.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n item(s) could not be copied.</source>
        <translation>
            <numerusform>%n item could not be copied.</numerusform>
            <numerusform>%n items could not be copied.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n item(s) could not be moved to the recycle bin.</source>
        <translation>
            <numerusform>%n item could not be moved to the recycle bin.</numerusform>
            <numerusform>%n items could not be moved to the recycle bin.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n item(s) could not be moved back.</source>
        <translation>
            <numerusform>%n item could not be moved back.</numerusform>
            <numerusform>%n items could not be moved back.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n item(s) could not be brought back.</source>
        <translation>
            <numerusform>%n item could not be brought back.</numerusform>
            <numerusform>%n items could not be brought back.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n item(s) could not be uploaded.</source>
        <translation>
            <numerusform>%n item could not be uploaded.</numerusform>
            <numerusform>%n items could not be uploaded.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n item(s) could not be downloaded.</source>
        <translation>
            <numerusform>%n item could not be downloaded.</numerusform>
            <numerusform>%n items could not be downloaded.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>CloudSettingsPage</name>
    <message numerus="yes">
        <source>%n upload(s) will not be done.</source>
        <translation>
            <numerusform>%n upload will not be done.</numerusform>
            <numerusform>%n uploads will not be done.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>CloudStatusLine</name>
    <message numerus="yes">
        <source>%n item(s)</source>
        <translation>
            <numerusform>%n item</numerusform>
            <numerusform>%n items</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>ConflictDialog</name>
    <message numerus="yes">
        <source>%n name(s) are already taken there</source>
        <translation>
            <numerusform>%n name is already taken there</numerusform>
            <numerusform>%n names are already taken there</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>and %n more</source>
        <translation>
            <numerusform>and %n more</numerusform>
            <numerusform>and %n more</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>MoveDialog</name>
    <message numerus="yes">
        <source>Move %n item(s) to</source>
        <translation>
            <numerusform>Move %n item to</numerusform>
            <numerusform>Move %n items to</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>TransferButton</name>
    <message numerus="yes">
        <source>Transfers: %n running, %1%</source>
        <translation>
            <numerusform>Transfers: %n running, %1%</numerusform>
            <numerusform>Transfers: %n running, %1%</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>TransferPanel</name>
    <message numerus="yes">
        <source>%n transfer(s) running</source>
        <translation>
            <numerusform>%n transfer running</numerusform>
            <numerusform>%n transfers running</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>ZelBoxTray</name>
    <message numerus="yes">
        <source>%n new or changed document(s)</source>
        <translation>
            <numerusform>%n new or changed document</numerusform>
            <numerusform>%n new or changed documents</numerusform>
        </translation>
    </message>
</context>
</TS>
