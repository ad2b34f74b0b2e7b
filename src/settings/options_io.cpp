// The [Options] and [Print] keys with their defaults and encodings.
#include "settings/options_io.h"

#include "engine/editor.h"
#include "settings/profile.h"

namespace ruvo {

namespace {

constexpr const char* OptionsSection = "Options";
constexpr const char* PrintSection = "Print";
// FontSize is kept as text of at most 3 characters; Font as a face name of at most 255.
constexpr int FontSizeCapacity = 4;
constexpr int FontCapacity = 256;
constexpr int PrintNumberCapacity = 8;
constexpr int PrintDestinationCapacity = 256;

} // namespace

void LoadOptions() {
    Options& o = TheEditor().settings.options;
    o.colors = ReadBool(OptionsSection, "Colors", true);
    o.autoIndent = ReadBool(OptionsSection, "AutoIndent", true);
    o.saveOnExit = ReadBool(OptionsSection, "SaveOnExit", true);
    o.backupFile = ReadBool(OptionsSection, "BackupFile", false);
    o.buttonsLeft = ReadBool(OptionsSection, "ButtonsLeft", true);
    o.firstChildMaximized = ReadBool(OptionsSection, "FirstChildMaximized", false);
    o.fontSize = ReadString(OptionsSection, "FontSize", "10", FontSizeCapacity);
    o.font = ReadString(OptionsSection, "Font", "Courier New", FontCapacity);
    o.tabSize = ReadInt(OptionsSection, "TabSize", 4);
}

void SaveOptions() {
    const Options& o = TheEditor().settings.options;
    (void)WriteBool(OptionsSection, "Colors", o.colors);
    (void)WriteBool(OptionsSection, "AutoIndent", o.autoIndent);
    (void)WriteBool(OptionsSection, "SaveOnExit", o.saveOnExit);
    (void)WriteBool(OptionsSection, "BackupFile", o.backupFile);
    (void)WriteBool(OptionsSection, "ButtonsLeft", o.buttonsLeft);
    (void)WriteBool(OptionsSection, "FirstChildMaximized", o.firstChildMaximized);
    (void)WriteString(OptionsSection, "FontSize", o.fontSize);
    (void)WriteString(OptionsSection, "Font", o.font);
    (void)WriteInt(OptionsSection, "TabSize", o.tabSize);
}

void LoadPrintSettings() {
    PrintSettings& p = TheEditor().settings.print;
    p.printDestination = ReadString(PrintSection, "PrintDestination", "", PrintDestinationCapacity);
    p.leftMargin = ReadString(PrintSection, "LeftMargin", "8", PrintNumberCapacity);
    p.fontSize = ReadString(PrintSection, "FontSize", "10", PrintNumberCapacity);
    p.fileInHeader = ReadBool(PrintSection, "FileInHeader", true);
    p.dateInHeader = ReadBool(PrintSection, "DateInHeader", true);
    p.lineNumbers = ReadBool(PrintSection, "LineNumbers", true);
    p.wrapLines = ReadBool(PrintSection, "WrapLines", true);
    p.syntax = ReadBool(PrintSection, "Syntax", true);
    p.color = ReadBool(PrintSection, "Color", true);
}

void SavePrintSettings() {
    const PrintSettings& p = TheEditor().settings.print;
    (void)WriteString(PrintSection, "PrintDestination", p.printDestination);
    (void)WriteString(PrintSection, "LeftMargin", p.leftMargin);
    (void)WriteString(PrintSection, "FontSize", p.fontSize);
    (void)WriteBool(PrintSection, "FileInHeader", p.fileInHeader);
    (void)WriteBool(PrintSection, "DateInHeader", p.dateInHeader);
    (void)WriteBool(PrintSection, "LineNumbers", p.lineNumbers);
    (void)WriteBool(PrintSection, "WrapLines", p.wrapLines);
    (void)WriteBool(PrintSection, "Syntax", p.syntax);
    (void)WriteBool(PrintSection, "Color", p.color);
}

} // namespace ruvo
