#pragma once

/// Names for the numbers of the strings of the report about a menu. The texts are in languages/.
namespace nesk::Message {

constexpr int CommandReport = 35013;

constexpr int ReportTitle = 35600;
constexpr int ReportContents = 35601;
constexpr int ReportMenuFile = 35602; // %0% path
constexpr int ReportDate = 35603;     // %0% date and time
constexpr int ReportFields = 35604;
constexpr int ReportHelpTopic = 35605;
constexpr int ReportFilesWaiting = 35606; // %0% number
constexpr int ReportSave = 35607;
constexpr int ReportPrint = 35608;
constexpr int ReportPages = 35609;
constexpr int ReportClose = 35610;
constexpr int ReportSaveTitle = 35611;
constexpr int ReportFilter = 35612;
constexpr int ReportFileName = 35613;
constexpr int ReportNotSaved = 35614; // %0% error
constexpr int ReportNoPages = 35615;
constexpr int ReportPageNumber = 35616; // @PAGENUM@ and @PAGESCNT@ are replaced when it is printed
constexpr int ReportMaking = 35617;
constexpr int ReportUnsaved = 35618;
constexpr int ReportSaved = 35619; // %0% path

} // namespace nesk::Message
