// The texts of printing, print preview and page setup in the desktop.
#pragma once

namespace zol::printqt {

inline constexpr char kNoPrinter[] =
    "No printer is installed. You can still print to a PDF file: choose \"Print to File (PDF)\" "
    "in the Print dialog.";
inline constexpr char kPrintTitle[] = "Print";
inline constexpr char kPrinting[] = "Printing page %1 of %2...";
inline constexpr char kPrintCancel[] = "Cancel";
inline constexpr char kPrintFailed[] = "The printer could not be started.";
inline constexpr char kPreviewTitle[] = "Print Preview - %1";
inline constexpr char kPreviewPage[] = "Page %1 of %2";
inline constexpr char kPreviewPrev[] = "&Previous";
inline constexpr char kPreviewNext[] = "&Next";
inline constexpr char kPreviewPrint[] = "P&rint...";
inline constexpr char kPreviewSetup[] = "Page Set&up...";
inline constexpr char kPreviewClose[] = "&Close";

inline constexpr char kSetupTitle[] = "Page Setup";
inline constexpr char kSetupPaper[] = "&Paper:";
inline constexpr char kSetupLandscape[] = "&Landscape";
inline constexpr char kSetupMargins[] = "Margins (mm)";
inline constexpr char kSetupLeft[] = "L&eft:";
inline constexpr char kSetupRight[] = "R&ight:";
inline constexpr char kSetupTop[] = "&Top:";
inline constexpr char kSetupBottom[] = "&Bottom:";
inline constexpr char kSetupHeader[] = "&Header:";
inline constexpr char kSetupFooter[] = "&Footer:";
inline constexpr char kSetupCodes[] =
    "&&f file name, &&F path, &&p page, &&P pages, &&d date, &&t time, &&l &&c &&r left, centre, right";
inline constexpr char kSetupFont[] = "F&ont:";
inline constexpr char kSetupFontSize[] = "&Size:";
inline constexpr char kSetupScreenFont[] = "Same as the editor's";
inline constexpr char kSetupKeywordFont[] = "&Keywords:";
inline constexpr char kSetupCommentFont[] = "Co&mments:";
inline constexpr char kSetupSameFont[] = "The printing font";
inline constexpr char kSetupSyntax[] = "Print with s&yntax highlighting";
inline constexpr char kSetupColour[] = "Print in &colour";
inline constexpr char kSetupWrap[] = "&Wrap long lines (else cut them)";
inline constexpr char kSetupLineNumbers[] = "Line numbers follow View > Line Numbers.";

}  // namespace zol::printqt
