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
        <translation>Month %1</translation>
    </message>
    <message>
        <source>%1 Year %2 Month</source>
        <translation>Month %2 of %1</translation>
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
        <translation>%1/%2</translation>
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
    <name>ZelBoxRecentFileWidgetBase</name>
    <message numerus="yes">
        <source>At most %n documents are opened at once.</source>
        <translation>
            <numerusform>At most %n document is opened at once.</numerusform>
            <numerusform>At most %n documents are opened at once.</numerusform>
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
        <source>%n file(s) moved to the recycle bin.</source>
        <translation>
            <numerusform>%n file moved to the recycle bin.</numerusform>
            <numerusform>%n files moved to the recycle bin.</numerusform>
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
        <source>%n file(s) brought back.</source>
        <translation>
            <numerusform>%n file brought back.</numerusform>
            <numerusform>%n files brought back.</numerusform>
        </translation>
    </message>
</context>
</TS>
