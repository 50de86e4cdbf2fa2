<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en">
<context>
    <name>TitleStrip</name>
    <message>
        <source>⌘↵ to save · esc to cancel</source>
        <translation>Ctrl+↵ to save · esc to cancel</translation>
    </message>
</context>
</TS>
