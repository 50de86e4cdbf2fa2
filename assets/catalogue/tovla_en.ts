<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en">
<context>
    <name>AlertWindow</name>
    <message>
        <source>OK</source>
        <translation>OK</translation>
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
    <name>PromptWindow</name>
    <message>
        <source>A note is being written</source>
        <translation>A note is being written</translation>
    </message>
</context>
<context>
    <name>QGuiApplication</name>
    <message>
        <source>QT_LAYOUT_DIRECTION</source>
        <translation>LTR</translation>
    </message>
</context>
<context>
    <name>SettingsView</name>
    <message>
        <source>Choose</source>
        <translation>Choose</translation>
    </message>
    <message>
        <source>The name of this folder is not valid UTF-8, so Tovla would not find it again. Rename it, or choose another one.</source>
        <translation>The name of this folder is not valid UTF-8, so Tovla would not find it again. Rename it, or choose another one.</translation>
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
    <name>TextMenu</name>
    <message>
        <source>Undo</source>
        <translation>Undo</translation>
    </message>
    <message>
        <source>Redo</source>
        <translation>Redo</translation>
    </message>
    <message>
        <source>Cut</source>
        <translation>Cut</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>Copy</translation>
    </message>
    <message>
        <source>Paste</source>
        <translation>Paste</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Delete</translation>
    </message>
    <message>
        <source>Select All</source>
        <translation>Select All</translation>
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
    <message>
        <source>Command Return to save, Escape to cancel</source>
        <translation>Control Return to save, Escape to cancel</translation>
    </message>
</context>
<context>
    <name>UpdatePage</name>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <translation>%1 of %2</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Cancel</translation>
    </message>
    <message>
        <source>You&apos;re up to date!</source>
        <translation>You&apos;re up to date!</translation>
    </message>
    <message>
        <source>%1 %2 is currently the newest version available.</source>
        <translation>%1 %2 is currently the newest version available.</translation>
    </message>
    <message>
        <source>A new version of %1 is available!</source>
        <translation>A new version of %1 is available!</translation>
    </message>
    <message>
        <source>%1 %2 is now available—you have %3. Would you like to install it now?</source>
        <translation>%1 %2 is now available—you have %3. Would you like to install it now?</translation>
    </message>
    <message>
        <source>Install Update</source>
        <translation>Install Update</translation>
    </message>
    <message>
        <source>Remind Me Later</source>
        <translation>Remind Me Later</translation>
    </message>
    <message>
        <source>Authorisation was not given.</source>
        <translation>Authorisation was not given.</translation>
    </message>
    <message>
        <source>These packages will change too: %1</source>
        <translation>These packages will change too: %1</translation>
    </message>
    <message>
        <source>Restart Now</source>
        <translation>Restart Now</translation>
    </message>
    <message>
        <source>Later</source>
        <translation>Later</translation>
    </message>
    <message>
        <source>Your system does not follow a software source for %1, so newer versions cannot be found.</source>
        <translation>Your system does not follow a software source for %1, so newer versions cannot be found.</translation>
    </message>
    <message>
        <source>The system&apos;s update service is not available. Use your software manager to update %1.</source>
        <translation>The system&apos;s update service is not available. Use your software manager to update %1.</translation>
    </message>
    <message>
        <source>No network connection. Please try again when you are online.</source>
        <translation>No network connection. Please try again when you are online.</translation>
    </message>
    <message>
        <source>An error occurred in retrieving update information. Please try again later.</source>
        <translation>An error occurred in retrieving update information. Please try again later.</translation>
    </message>
    <message>
        <source>The update information is improperly signed, so it was not used.</source>
        <translation>The update information is improperly signed, so it was not used.</translation>
    </message>
    <message>
        <source>The update could not be downloaded or is improperly signed. %1 %2 stays installed.</source>
        <translation>The update could not be downloaded or is improperly signed. %1 %2 stays installed.</translation>
    </message>
    <message>
        <source>Other software is being installed, or an earlier installation was interrupted. Please try again later.</source>
        <translation>Other software is being installed, or an earlier installation was interrupted. Please try again later.</translation>
    </message>
    <message>
        <source>An error occurred while installing the update. Please try again later.</source>
        <translation>An error occurred while installing the update. Please try again later.</translation>
    </message>
    <message>
        <source>%1 can&apos;t be updated from here.</source>
        <translation>%1 can&apos;t be updated from here.</translation>
    </message>
    <message>
        <source>This copy was not installed by your system&apos;s package manager (it runs from %1). Update it the way it was installed.</source>
        <translation>This copy was not installed by your system&apos;s package manager (it runs from %1). Update it the way it was installed.</translation>
    </message>
    <message>
        <source>Update Error!</source>
        <translation>Update Error!</translation>
    </message>
    <message>
        <source>Checking for updates…</source>
        <translation>Checking for updates…</translation>
    </message>
    <message>
        <source>Waiting for other software changes…</source>
        <translation>Waiting for other software changes…</translation>
    </message>
    <message>
        <source>Waiting for authorisation…</source>
        <translation>Waiting for authorisation…</translation>
    </message>
    <message>
        <source>Downloading update…</source>
        <translation>Downloading update…</translation>
    </message>
    <message>
        <source>Installing update…</source>
        <translation>Installing update…</translation>
    </message>
    <message>
        <source>Update Installed</source>
        <translation>Update Installed</translation>
    </message>
    <message>
        <source>%1 is now updated to version %2! Restart %1 to use it.</source>
        <translation>%1 is now updated to version %2! Restart %1 to use it.</translation>
    </message>
    <message>
        <source>A new version of %1 is ready!</source>
        <translation>A new version of %1 is ready!</translation>
    </message>
    <message>
        <source>Version %1 is already installed; this window is still version %2.</source>
        <translation>Version %1 is already installed; this window is still version %2.</translation>
    </message>
    <message>
        <source>%1 and %2 more</source>
        <translation>%1 and %2 more</translation>
    </message>
</context>
<context>
    <name>UpdateWindow</name>
    <message>
        <source>Release Notes</source>
        <translation>Release Notes</translation>
    </message>
    <message>
        <source>Details</source>
        <translation>Details</translation>
    </message>
    <message>
        <source>Software Update</source>
        <translation>Software Update</translation>
    </message>
    <message>
        <source>Release Notes:</source>
        <translation>Release Notes:</translation>
    </message>
</context>
<context>
    <name>UpdaterController</name>
    <message>
        <source>Update Installed</source>
        <translation>Update Installed</translation>
    </message>
    <message>
        <source>The new version will be available next time.</source>
        <translation>The new version will be available next time.</translation>
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
