<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en" sourcelanguage="en">
<context>
    <name>NavigationBar</name>
    <message numerus="yes">
        <source>%Ln unread</source>
        <translation>
            <numerusform>%Ln unread</numerusform>
            <numerusform>%Ln unread</numerusform>
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
        <source>Are you sure to delete %Ln file(s) ?</source>
        <translation>
            <numerusform>Are you sure to delete %Ln file ?</numerusform>
            <numerusform>Are you sure to delete %Ln files ?</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>RemoveRecordDialog</name>
    <message numerus="yes">
        <source>Are you sure to remove %Ln record(s) ?</source>
        <translation>
            <numerusform>Are you sure to remove %Ln record ?</numerusform>
            <numerusform>Are you sure to remove %Ln records ?</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>TransferTexts</name>
    <message numerus="yes">
        <source>%1 without %Ln item(s)</source>
        <comment>done</comment>
        <translation>
            <numerusform>%1 without %Ln item</numerusform>
            <numerusform>%1 without %Ln items</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln minute(s) left</source>
        <translation>
            <numerusform>%Ln minute left</numerusform>
            <numerusform>%Ln minutes left</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln hour(s) left</source>
        <translation>
            <numerusform>%Ln hour left</numerusform>
            <numerusform>%Ln hours left</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>ZelBoxRecentFileTitleWidget</name>
    <message numerus="yes">
        <source>%Ln unread</source>
        <translation>
            <numerusform>%Ln unread</numerusform>
            <numerusform>%Ln unread</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>OpeningNotices</name>
    <message numerus="yes">
        <source>At most %Ln documents are opened at once.</source>
        <translation>
            <numerusform>At most %Ln document is opened at once.</numerusform>
            <numerusform>At most %Ln documents are opened at once.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>RecentCommands</name>
    <message numerus="yes">
        <source>%Ln document(s) were removed from the list.</source>
        <translation>
            <numerusform>%Ln document was removed from the list.</numerusform>
            <numerusform>%Ln documents were removed from the list.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Undo brings back %Ln of them, on this device only.</source>
        <translation>
            <numerusform>Undo brings back one of them, on this device only.</numerusform>
            <numerusform>Undo brings back %Ln of them, on this device only.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln document(s) are back on the list.</source>
        <translation>
            <numerusform>%Ln document is back on the list.</numerusform>
            <numerusform>%Ln documents are back on the list.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln file(s) could not be deleted.</source>
        <translation>
            <numerusform>%Ln file could not be deleted.</numerusform>
            <numerusform>%Ln files could not be deleted.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln file(s) were moved to the recycle bin.</source>
        <translation>
            <numerusform>%Ln file was moved to the recycle bin.</numerusform>
            <numerusform>%Ln files were moved to the recycle bin.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln file(s) could not be brought back.</source>
        <translation>
            <numerusform>%Ln file could not be brought back.</numerusform>
            <numerusform>%Ln files could not be brought back.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln file(s) are back where they were.</source>
        <translation>
            <numerusform>%Ln file is back where it was.</numerusform>
            <numerusform>%Ln files are back where they were.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln document(s) were left out: they are not on this device.</source>
        <translation>
            <numerusform>%Ln document was left out: it is not on this device.</numerusform>
            <numerusform>%Ln documents were left out: they are not on this device.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>CloudDocNotices</name>
    <message numerus="yes">
        <source>%Ln item(s) could not be copied: their names cannot be stored.</source>
        <translation>
            <numerusform>%Ln item could not be copied: its name cannot be stored.</numerusform>
            <numerusform>%Ln items could not be copied: their names cannot be stored.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln item(s) were moved.</source>
        <translation>
            <numerusform>%Ln item was moved.</numerusform>
            <numerusform>%Ln items were moved.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln item(s) were moved to “%1”.</source>
        <translation>
            <numerusform>%Ln item was moved to “%1”.</numerusform>
            <numerusform>%Ln items were moved to “%1”.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln item(s) were moved to the recycle bin.</source>
        <translation>
            <numerusform>%Ln item was moved to the recycle bin.</numerusform>
            <numerusform>%Ln items were moved to the recycle bin.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln item(s) are back.</source>
        <translation>
            <numerusform>%Ln item is back.</numerusform>
            <numerusform>%Ln items are back.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln item(s) are back in “%1”.</source>
        <translation>
            <numerusform>%Ln item is back in “%1”.</numerusform>
            <numerusform>%Ln items are back in “%1”.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>CloudProblems</name>
    <message numerus="yes">
        <source>%Ln item(s) could not be moved.</source>
        <translation>
            <numerusform>%Ln item could not be moved.</numerusform>
            <numerusform>%Ln items could not be moved.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln item(s) could not be copied.</source>
        <translation>
            <numerusform>%Ln item could not be copied.</numerusform>
            <numerusform>%Ln items could not be copied.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln item(s) could not be moved to the recycle bin.</source>
        <translation>
            <numerusform>%Ln item could not be moved to the recycle bin.</numerusform>
            <numerusform>%Ln items could not be moved to the recycle bin.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln item(s) could not be moved back.</source>
        <translation>
            <numerusform>%Ln item could not be moved back.</numerusform>
            <numerusform>%Ln items could not be moved back.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln item(s) could not be brought back.</source>
        <translation>
            <numerusform>%Ln item could not be brought back.</numerusform>
            <numerusform>%Ln items could not be brought back.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln item(s) could not be uploaded.</source>
        <translation>
            <numerusform>%Ln item could not be uploaded.</numerusform>
            <numerusform>%Ln items could not be uploaded.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln item(s) could not be downloaded.</source>
        <translation>
            <numerusform>%Ln item could not be downloaded.</numerusform>
            <numerusform>%Ln items could not be downloaded.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>CloudSettingsPage</name>
    <message numerus="yes">
        <source>%Ln upload(s) will not be done.</source>
        <translation>
            <numerusform>%Ln upload will not be done.</numerusform>
            <numerusform>%Ln uploads will not be done.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>CloudStatusLine</name>
    <message numerus="yes">
        <source>%Ln item(s)</source>
        <translation>
            <numerusform>%Ln item</numerusform>
            <numerusform>%Ln items</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>ConflictDialog</name>
    <message numerus="yes">
        <source>%Ln name(s) are already taken there</source>
        <translation>
            <numerusform>%Ln name is already taken there</numerusform>
            <numerusform>%Ln names are already taken there</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>and %Ln more</source>
        <translation>
            <numerusform>and %Ln more</numerusform>
            <numerusform>and %Ln more</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>MoveDialog</name>
    <message numerus="yes">
        <source>Move %Ln item(s) to</source>
        <translation>
            <numerusform>Move %Ln item to</numerusform>
            <numerusform>Move %Ln items to</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>TransferButton</name>
    <message numerus="yes">
        <source>Transfers: %Ln running, %1%</source>
        <translation>
            <numerusform>Transfers: %Ln running, %1%</numerusform>
            <numerusform>Transfers: %Ln running, %1%</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>TransferPanel</name>
    <message numerus="yes">
        <source>%Ln transfer(s) running</source>
        <translation>
            <numerusform>%Ln transfer running</numerusform>
            <numerusform>%Ln transfers running</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>ZelBoxTray</name>
    <message numerus="yes">
        <source>%Ln new or changed document(s)</source>
        <translation>
            <numerusform>%Ln new or changed document</numerusform>
            <numerusform>%Ln new or changed documents</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln transfer(s) under way</source>
        <translation>
            <numerusform>%Ln transfer under way</numerusform>
            <numerusform>%Ln transfers under way</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>KRecentFileMenu</name>
    <message numerus="yes">
        <source>Move %Ln File(s) to Recycle Bin</source>
        <translation>
            <numerusform>Move %Ln File to Recycle Bin</numerusform>
            <numerusform>Move %Ln Files to Recycle Bin</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>CloudDocActions</name>
    <message numerus="yes">
        <source>Move %Ln Item(s) to Recycle Bin</source>
        <translation>
            <numerusform>Move %Ln Item to Recycle Bin</numerusform>
            <numerusform>Move %Ln Items to Recycle Bin</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>ZelBoxExitDialog</name>
    <message numerus="yes">
        <source>%Ln transfer(s) are under way. They go on after the exit until they are done.</source>
        <translation>
            <numerusform>%Ln transfer is under way. It goes on after the exit until it is done.</numerusform>
            <numerusform>%Ln transfers are under way. They go on after the exit until they are done.</numerusform>
        </translation>
    </message>
</context>
</TS>
