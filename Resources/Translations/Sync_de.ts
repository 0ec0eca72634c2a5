<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>Sync</name>
    <message><source>Sync Now</source><translation>Jetzt abgleichen</translation></message>
</context>
</TS>
