// What a job does beside printing: it lets the application live, takes its dialog down, and reports what went wrong.
#pragma once

#include <morvl15/print.h>

// Disables the application's windows, creates the dialog. A dialog that can't be created is none.
void PrintPutUpDialog(HDC dc);

// Takes down what still stands of the two: enables the windows, destroys the dialog.
void PrintTakeDownDialog(HDC dc);

// Dispatches waiting messages until there is none or the job is to stop. False when the job has gone.
bool PrintDispatchMessages(HDC dc);

// Shows the number of the next sheet.
void PrintUpdatePageDisplay(HDC dc);

// Reports the result of a document call that failed, and stops the job. A code that the platform has shown to the user
// is not shown again.
void PrintReportError(HDC dc, int32_t code);

// Up only during the call that starts the document: the dialog then ignores its button.
extern bool gPrintStartingDocument;
