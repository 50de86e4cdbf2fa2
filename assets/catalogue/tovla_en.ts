<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en">
<context>
    <name>AlertBox</name>
    <message>
        <source>Warning</source>
        <translation>Warning</translation>
    </message>
</context>
<context>
    <name>CloseButton</name>
    <message>
        <source>Close</source>
        <translation>Close</translation>
    </message>
</context>
<context>
    <name>FolderControl</name>
    <message>
        <source>No folder selected</source>
        <translation>No folder selected</translation>
    </message>
    <message>
        <source>Choose…</source>
        <translation>Choose…</translation>
    </message>
    <message>
        <source>Choose</source>
        <translation>Choose</translation>
    </message>
</context>
<context>
    <name>FrequencyControl</name>
    <message>
        <source>next at</source>
        <translation>next at</translation>
    </message>
    <message>
        <source>minute</source>
        <translation>minute</translation>
    </message>
    <message>
        <source>minutes</source>
        <translation>minutes</translation>
    </message>
</context>
<context>
    <name>MenuContent</name>
    <message>
        <source>Write now</source>
        <translation>Write now</translation>
    </message>
    <message>
        <source>Settings…</source>
        <translation>Settings…</translation>
    </message>
    <message>
        <source>Check for Updates…</source>
        <translation>Check for Updates…</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>Quit</translation>
    </message>
    <message>
        <source>No folder selected</source>
        <translation>No folder selected</translation>
    </message>
</context>
<context>
    <name>SoundControl</name>
    <message>
        <source>Sound</source>
        <translation>Sound</translation>
    </message>
    <message>
        <source>Preview</source>
        <translation>Preview</translation>
    </message>
</context>
<context>
    <name>Stepper</name>
    <message>
        <source>Increase</source>
        <translation>Increase</translation>
    </message>
    <message>
        <source>Decrease</source>
        <translation>Decrease</translation>
    </message>
</context>
<context>
    <name>ThemeControl</name>
    <message>
        <source>Theme</source>
        <translation>Theme</translation>
    </message>
    <message>
        <source>Follow System</source>
        <translation>Follow System</translation>
    </message>
    <message>
        <source>Light</source>
        <translation>Light</translation>
    </message>
    <message>
        <source>Dark</source>
        <translation>Dark</translation>
    </message>
</context>
<context>
    <name>TitleStrip</name>
    <message>
        <source>⌘↵ to save · esc to cancel</source>
        <translation>Ctrl+↵ to save · esc to cancel</translation>
    </message>
</context>
<context>
    <name>TovlaApp</name>
    <message>
        <source>Tovla can&apos;t be updated from here.</source>
        <translation>Tovla can&apos;t be updated from here.</translation>
    </message>
    <message>
        <source>This copy was not installed by your system&apos;s package manager. Update it the way it was installed.</source>
        <translation>This copy was not installed by your system&apos;s package manager. Update it the way it was installed.</translation>
    </message>
</context>
<context>
    <name>WritingBox</name>
    <message>
        <source>What would you like to note about this moment?</source>
        <translation>What would you like to note about this moment?</translation>
    </message>
</context>
</TS>
