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
</TS>
