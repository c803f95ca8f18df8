#ifndef TESTS_MUTATION_FAULT_TABLE_H
#define TESTS_MUTATION_FAULT_TABLE_H

#include "row.h"

struct Fault : test_support::Row {
    const char* file;          // the one with the fault
    const char* text;          // stands in the file once
    const char* replacement;   // without the right text
    const char* suite;         // driver, unit, pixels or log
    const char* test;          // by its full name
    const char* source = file; // what is compiled, where it only includes the file
};

// clang-format off
// NOLINTNEXTLINE(cert-err58-cpp): off in tests, but a header is checked alone outside their folder
const Fault kFaults[] = {
    // The driver.
    {"WrongOrderOfKeys", "kb_test.cpp",
     "{{press, RemoteDown, 1}, {move, RemoteRight, 13}, {probe, 0, 1}}",
     "{{move, RemoteRight, 13}, {press, RemoteDown, 1}, {probe, 0, 1}}",
     "driver", "KbCommand/DriverRun.PrintsTheseLines/Clear"},
    {"OffByOneLine", "kb_test.cpp", "\"kb_test_loop_up\", 92,", "\"kb_test_loop_up\", 93,",
     "driver", "KbCommand/DriverRun.PrintsTheseLines/LoopUp"},
    {"OffByOneCount", "kb_test.cpp", "{{move, RemoteDown, 111}", "{{move, RemoteDown, 110}",
     "driver", "KbCommand/DriverRun.PrintsTheseLines/LoopDown"},
    {"BareQuitEndsTheLoop", "kb_test.cpp", "if (line == \"quit\")\n        return;", "",
     "driver", "KbLoop/DriverRun.PrintsTheseLines/QuitAloneDoesNotEndIt"},
    {"WrongUsageText", "main_test.cpp", "kbui show A\\n\\n", "kbui show A\\n",
     "driver", "Arguments/EntryUsage.IsPrintedWithoutTouchingTheDisplay/NoArguments"},
    {"NoWaitForEnter", "main_test.cpp", "std::getc(stdin);", "",
     "driver", "Entry.WaitsForOneCharacterBeforeItReleasesTheDisplay"},
    {"BlankLostInACheckedText", "kb_ui_test.cpp",
     "\"layer->CreateWindow( layer, &win_desc, &window )\"",
     "\"layer->CreateWindow(layer, &win_desc, &window)\"",
     "driver", "Calls/EntryFailure.EndsTheProcessWithTheCallsText/CreateWindow1"},
    {"NegativeCountNotClamped", "kb_ui_test.cpp",
     "passes < 0 || passes > kMaxFocusPasses", "passes > kMaxFocusPasses",
     "driver", "KbUiCount/DriverRun.PrintsTheseLines/LoopFocusBelowZeroRunsFiftyPasses"},
    {"PauseLost", "kb_ui_test.cpp", "sleep(kPressPause);", "",
     "driver", "KbUiCommand/DriverRun.PrintsTheseLines/Press"},
    {"SecondBorrowedForEqualNanoseconds", "elapsed_time.h",
     "end.tv_nsec > start.tv_nsec", "end.tv_nsec >= start.tv_nsec",
     "driver", "KbCommand/DriverRun.PrintsTheseLines/Left", "kb_test.cpp"},
    // The renderer.
    {"MissingFlip", "keyboard_ui.cpp",
     "drawLines(key.rect, kFocused);\n    flipWhole();", "drawLines(key.rect, kFocused);",
     "pixels", "Paintings/KeyLooks.Picture/OfAFocusedKey"},
    {"WrongColour", "keyboard_ui.cpp", "kSunkenFill = 0xFF191919", "kSunkenFill = 0xFF191918",
     "pixels", "Paintings/KeyLooks.Picture/OfALockedKey"},
    {"FlipOfTheWholeWindowForOneKey", "keyboard_ui.cpp",
     "m_surface->Flip(m_surface, &region, DSFLIP_WAITFORSYNC)",
     "m_surface->Flip(m_surface, (void(region), nullptr), DSFLIP_WAITFORSYNC)",
     "pixels", "Paintings/KeyLooks.Picture/OfAPressedKeyShowsOnlyItsOwnArea"},
    {"WrongOrderOfLines", "keyboard_ui.cpp",
     "{kRight, kBottom, kInnerRight, kInnerBottom}", "{kBottom, kRight, kInnerRight, kInnerBottom}",
     "unit", "Operations/Drawing.IsTheseCallsAndLines/DrawPaintsEveryKeyInListOrderAndFlips"},
    {"WrongLevel", "keyboard_ui.cpp",
     "VKB_LOG(LogDetail, \"done\\n\");", "VKB_LOG(LogTrace, \"done\\n\");",
     "unit", "Operations/Drawing.IsTheseCallsAndLines/DrawPaintsEveryKeyInListOrderAndFlips"},
    // The core.
    {"FocusSentBeforeLocks", "keyboard_core.cpp",
     "    sendLockButtonToUI();\n    return sendFocusButtonToUI();",
     "    const int sent = sendFocusButtonToUI();\n    sendLockButtonToUI();\n    return sent;",
     "unit", "CoreFocus.AChangeSendsTheLocksBeforeTheFocus"},
    {"ModifierLost", "keyboard_core.cpp",
     "m_button.modifier = kShiftModifier;", "m_button.modifier = 0;",
     "unit", "Sessions/CorePresses.BringTheseResultsAndLocks/ALetterWithShiftOnceIsShiftedAndReleasesShift"},
    {"OnlyTheFirstLayout", "keyboard_core.cpp",
     "if (m_layout_index >= m_layout_names.size())", "if (m_layout_index > 0)",
     "unit", "CoreLayouts.EachLayoutChangeTakesTheNextNameAndWraps"},
    {"WrongLineAfterAModeGoesOff", "keyboard_core.cpp",
     "VKB_LOG_FORMAT(LogTrace, __LINE__, handler,", "VKB_LOG_FORMAT(LogTrace, __LINE__, __func__,",
     "unit", "CoreDispatch.EachPressOfASessionIsTheseCallsAndLines"},
    // The parser.
    {"GapOfTheOtherDirection", "Language_Parser.cpp",
     "grid[\"positionYValue\"]", "grid[\"positionXValue\"]",
     "unit", "Files/GoodCatalogue.GivesItsNamesSizeAndGrid/GapAndCellOfEachDirectionAreItsOwn"},
    {"TablePositionsStartAnew", "Language_Parser.cpp",
     "m_layout_names.clear();", "m_layout_names.clear();\n    m_key_rects.clear();",
     "unit", "CatalogueTest.WithAnEmptyNameListEachCallReadsAgainAndTheFirstPositionsStay"},
    // The log library.
    {"LongLineCut", "cspdebug.cpp",
     "write_whole(whole.get(), bytes);", "write_whole(whole.get(), bytes - 1);",
     "log", "CspDebugOutput.LineOfAnyLengthIsOneWrite"},
};
// clang-format on

#endif
