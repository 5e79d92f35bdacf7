#include "ui/script/engine.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <random>

#include "tests/ui/toy_program.h"

namespace zentaline::ui {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

struct Result {
  int status = 0;
  std::string complaint;
  std::vector<std::string> lines;  // of the transcript, behind those of the start
  std::vector<std::string> log;    // of the windows, behind the start
};

// Runs `script` behind a start, which opens frmMain and frmToy(1).
Result AfterStart(const std::string& script) {
  ToyHost host("start\n" + script);
  Result result;
  result.status = host.Run();
  result.complaint = host.complaint;
  result.lines.assign(host.lines.begin() + 2, host.lines.end());
  result.log.assign(host.toy.log.begin() + 2, host.toy.log.end());
  return result;
}

int StatusOf(const std::string& script) {
  return AfterStart(script).status;
}

TEST(ScriptEngine, AnEmptyScriptIsDone) {
  ToyHost host("");
  EXPECT_EQ(host.Run(), 0);
  EXPECT_THAT(host.lines, IsEmpty());
}

TEST(ScriptEngine, CarriesOutWhatTheUserDoes) {
  const Result result = AfterStart(
      "press frmToy(1).Comm\n"
      "press frmToy(1).Option1(1)\n"
      "select frmToy(1).List1 1\n"
      "select frmToy(1).ListMany 2 0\n"
      "select frmToy(1).Combo1 1\n"
      "set frmToy(1).VScroll1(0) 64\n"
      "set frmToy(1).Check1 1\n"
      "set frmToy(1).Tab1 1\n"
      "type frmToy(1).Text1 \"a b\"\n"
      "type frmToy(1).ComboEdit blue\n"
      "double frmToy(1).List1 2\n"
      "mouse frmToy(1).Picture1 down 30 -40\n"
      "mouse frmToy(1).Picture1 move 1 2 right\n"
      "mouse frmToy(1).Picture1 up\n"
      "mouse frmToy(1) move\n");
  EXPECT_EQ(result.status, 0) << result.complaint;
  EXPECT_THAT(result.log, ElementsAre("Comm", "Option1(1)", "List1 click 1", "ListMany click", "Combo1=green",
                                      "VScroll1(0)=64", "Check1=1", "Tab1=1", "Text1=a b", "ComboEdit=blue",
                                      "List1 click 2", "List1 double", "Picture1 mouse 0 30 -40",
                                      "Picture1 mouse 1 1 2 right", "Picture1 mouse 2 0 0", "form mouse 1"));
}

TEST(ScriptEngine, DragsTheHandlesOfAPicture) {
  ToyHost host(
      "start\n"
      "get frmToy(1).Curve\n"
      "get frmToy(1).Curve.handles\n"
      "press frmToy(1).Comm\n"
      "drag frmToy(1).Curve 1 333 1000\n"
      "drag frmToy(1).Curve 0 -5 99999999999\n"
      "get frmToy(1).Curve.handles\n"
      "get frmToy(1).Curve.handle(1)\n"
      "get frmToy(1).Curve.focus\n"
      "drag frmToy(1).Curve 2 0 0\n");
  host.toy.with_handles = true;
  EXPECT_EQ(host.Run(), 1);
  EXPECT_EQ(host.complaint, "line 10: frmToy(1).Curve has no such handle");
  EXPECT_THAT(std::vector(host.lines.begin() + 2, host.lines.end()),
              ElementsAre("value frmToy(1).Curve \"\"", "value frmToy(1).Curve.handles \"\"",
                          "value frmToy(1).Curve.handles \"10 20; 30 40\"", "value frmToy(1).Curve.handle(1) \"30 40\"",
                          "value frmToy(1).Curve.focus 1"));
  EXPECT_THAT(std::vector(host.toy.log.begin() + 2, host.toy.log.end()),
              ElementsAre("Comm", "Curve 1 to 333 1000", "Curve 0 to 0 1000"));
}

TEST(ScriptEngine, RefusesADragThatCantBe) {
  EXPECT_EQ(StatusOf("drag frmToy(1).Curve 0 1 1"), 1);
  EXPECT_EQ(StatusOf("drag frmToy(1).VScroll1(0) 0 1 1"), 1);
  EXPECT_EQ(StatusOf("drag frmToy(1) 0 1 1"), 1);
  EXPECT_EQ(StatusOf("drag frmToy(1).Curve 0 1"), 2);
  EXPECT_EQ(StatusOf("drag frmToy(1).Curve 0 1 half"), 2);
  EXPECT_EQ(StatusOf("get frmToy(1).Curve.handle(0)"), 1);
  EXPECT_EQ(StatusOf("get frmToy(1).Comm.handles"), 1);
}

TEST(ScriptEngine, SelectNoneTakesTheSelectionAway) {
  const Result result =
      AfterStart("select frmToy(1).ListMany 1 2\nselect frmToy(1).ListMany none\nget frmToy(1).ListMany.selected");
  EXPECT_EQ(result.status, 0);
  EXPECT_THAT(result.lines, ElementsAre("value frmToy(1).ListMany.selected \"\""));
  EXPECT_EQ(StatusOf("select frmToy(1).Combo1 none"), 1);
}

TEST(ScriptEngine, AControlsWindowComesToTheFrontFirst) {
  const Result result = AfterStart("press mnuNew\npress frmToy(1).Comm\nget frmToy(1).focus");
  EXPECT_THAT(result.log, ElementsAre("resized 2", "activated 2", "activated 1", "Comm"));
  EXPECT_THAT(result.lines, ElementsAre("open 0 frmToy(2) \"Toy 2\"", "value frmToy(1).focus 1"));
}

TEST(ScriptEngine, ActivateBringsAChildToTheFrontAndNothingElse) {
  EXPECT_THAT(AfterStart("press mnuNew\nactivate frmToy(1)\nactivate frmToy(1)").log,
              ElementsAre("resized 2", "activated 2", "activated 1"));
  EXPECT_EQ(StatusOf("activate frmMain"), 1);
  EXPECT_EQ(StatusOf("activate frmToy(9)"), 1);
}

TEST(ScriptEngine, KeysReachTheHandlerAndThenDoWhatTheyDo) {
  const Result result = AfterStart(
      "key frmToy(1).Comm Space\nkey frmToy(1).List1 Down\nkey frmToy(1).Check1 Space\nkey frmToy(1).Text1 x\n"
      "key frmToy(1).Text1 Space\nkey frmToy(1).VScroll1(1) End");
  EXPECT_EQ(result.status, 0) << result.complaint;
  EXPECT_THAT(result.log,
              ElementsAre("Comm", "List1 click 0", "Check1=1", "Text1 key 0x", "Text1=x", "Text1 key 2", "Text1=x "));
  EXPECT_EQ(StatusOf("key frmToy(1).Timer1 x"), 1);
  EXPECT_EQ(StatusOf("key frmToy(1).Text1 Tab"), 2);
}

TEST(ScriptEngine, EnterAndEscapePressTheButtonsOfTheForm) {
  EXPECT_THAT(AfterStart("press mnuModal\nkey frmModal.Text1 Enter").lines,
              ElementsAre("open 0 frmModal \"Modal\"", "close 0 frmModal"));
  EXPECT_THAT(AfterStart("press mnuModal\nkey frmModal.Text1 Escape").log, ElementsAre("modal closed"));
}

TEST(ScriptEngine, ARightClickOpensAPopupThatHoldsNothingUp) {
  const Result result = AfterStart("menu frmToy(1).List1\npress mnuToggle\nget mnuToggle");
  EXPECT_EQ(result.status, 0);
  EXPECT_THAT(result.lines, ElementsAre("popup 0 mnuFile", "value mnuToggle 1"));
}

TEST(ScriptEngine, RefusesWhatAUserCouldNotDo) {
  for (const std::string_view line : {"press frmToy(1).CommOff",
                                      "press frmToy(1).CommHidden",
                                      "press frmToy(1).Nothing",
                                      "press frmToy(2).Comm",
                                      "press frmToy(1)",
                                      "press frmToy(1).Label1",
                                      "press frmToy(1).Check1",
                                      "press mnuBelow",
                                      "press mnuOff",
                                      "press mnuHidden",
                                      "press mnuNothing",
                                      "select frmToy(1).List1 3",
                                      "select frmToy(1).List1 -1",
                                      "select frmToy(1).List1 0 1",
                                      "select frmToy(1).ListMany 0 4",
                                      "select frmToy(1).Combo1 2",
                                      "select frmToy(1).Combo1 0 1",
                                      "select frmToy(1).List1 99999999999999999999",
                                      "select frmToy(1).Text1 0",
                                      "set frmToy(1).VScroll1(0) 128",
                                      "set frmToy(1).VScroll1(0) -1",
                                      "set frmToy(1).Check1 2",
                                      "set frmToy(1).Tab1 2",
                                      "set frmToy(1).Option1(0) 1",
                                      "set frmToy(1).Text1 1",
                                      "type frmToy(1).Text1 123456789",
                                      "type frmToy(1).Combo1 blue",
                                      "type frmToy(1).Comm x",
                                      "type frmToy(1).Text1 \"\\xFF\"",
                                      "type frmToy(1).Text1 \"\\x00\"",
                                      "double frmToy(1).List1 3",
                                      "double frmToy(1).Combo1 0",
                                      "mouse frmToy(1).Timer1 down",
                                      "mouse mnuNew down",
                                      "mouse frmToy(1).CommOff down",
                                      "menu frmToy(1).CommOff",
                                      "menu frmNone",
                                      "close frmNone",
                                      "resize frmToy(1) 0 5",
                                      "resize frmToy(1) 5 -1",
                                      "move frmToy(1) 9999999 0",
                                      "maximize frmNone",
                                      "get frmToy(1).Nothing",
                                      "get frmToy(1).Comm.rows",
                                      "show frmNone",
                                      "state Nothing",
                                      "image frmNone 1 1",
                                      "image frmToy(1) 0 1",
                                      "image frmToy(1) 1 99999999",
                                      "image frmMain 1 1",
                                      "instrument",
                                      "answer yes",
                                      "file x",
                                      "start",
                                      "outs",
                                      "ins a"}) {
    const Result result = AfterStart(std::string(line));
    EXPECT_EQ(result.status, 1) << line;
    EXPECT_THAT(result.complaint, HasSubstr("line 2: ")) << line;
  }
}

TEST(ScriptEngine, ALineThatIsNoCommandIsWrongUsage) {
  for (const std::string_view line : {"jump",
                                      "Press mnuNew",
                                      "press",
                                      "press a b",
                                      "select frmToy(1).List1",
                                      "select frmToy(1).List1 x",
                                      "select frmToy(1).List1 \"none\"",
                                      "select frmToy(1).List1 none 1",
                                      "set frmToy(1).Check1",
                                      "set a b",
                                      "set a 1 2",
                                      "type a",
                                      "type a b c",
                                      "key a",
                                      "key a Nokey",
                                      "double a x",
                                      "mouse a",
                                      "mouse a click",
                                      "mouse a down 1",
                                      "mouse a down 1 x",
                                      "mouse a down 1 2 3",
                                      "mouse a down 1 2 left",
                                      "menu",
                                      "activate",
                                      "close",
                                      "resize a 1",
                                      "resize a 1 x",
                                      "move a 1",
                                      "maximize",
                                      "minimize a b",
                                      "restore",
                                      "disk read",
                                      "disk read EIO x",
                                      "disk read EIO -1",
                                      "disk read EIO 1 x",
                                      "disk read EIO 1 -1",
                                      "disk read EIO 1 1 1",
                                      "disk nothing EIO",
                                      "fail midiOutOpen",
                                      "fail midiOutOpen x",
                                      "fail midiOutOpen 1 -1",
                                      "fail midiNothing 1",
                                      "printer",
                                      "printer maybe",
                                      "answer",
                                      "answer maybe",
                                      "file",
                                      "file cancel now",
                                      "file a filter=x",
                                      "file a readonly=2",
                                      "file a filter=1 filter=2",
                                      "file a b",
                                      "wait",
                                      "wait x",
                                      "wait -1",
                                      "wait 1 2",
                                      "quit now",
                                      "get",
                                      "get a b",
                                      "show",
                                      "image frmToy(1) 1",
                                      "image frmToy(1) x 1",
                                      "instrument x",
                                      "state",
                                      "windows x",
                                      "start now",
                                      "press \"mnuNew",
                                      "\"\""}) {
    const Result result = AfterStart("press mnuToggle\n\n# a comment\n" + std::string(line) + "\npress mnuToggle");
    EXPECT_EQ(result.status, 2) << line;
    EXPECT_THAT(result.complaint, HasSubstr("line 5: ")) << line;
  }
}

TEST(ScriptEngine, AMessageTellsWhyAControlIsOutOfReach) {
  EXPECT_EQ(AfterStart("press frmToy(1).CommOff").complaint, "line 2: frmToy(1).CommOff is disabled");
  EXPECT_EQ(AfterStart("press frmToy(1).CommHidden").complaint, "line 2: frmToy(1).CommHidden is not to be seen");
  EXPECT_EQ(AfterStart("press mnuBelow").complaint, "line 2: mnuBelow stands in what is disabled or hidden");
}

TEST(ScriptEngine, NothingBehindTheFirstFailureIsCarriedOut) {
  EXPECT_THAT(AfterStart("press frmToy(1).Comm\npress frmNone.Comm\npress frmToy(1).Comm").log, ElementsAre("Comm"));
}

TEST(ScriptEngine, BeforeTheStartOnlyPreparationsAndReadersAreTaken) {
  for (const std::string_view line : {"press mnuNew", "wait 1", "quit", "select a 1", "set a 1", "type a b", "key a x",
                                      "double a 1", "mouse a down", "menu a", "activate a", "close a", "resize a 1 1",
                                      "maximize a", "answer yes", "file x", "get frmMain", "show frmMain"}) {
    ToyHost host{std::string(line)};
    EXPECT_EQ(host.Run(), 1) << line;
  }
  ToyHost host(
      "outs \"Port A\" B\nfail midiOutOpen 4\nfail midiOutOpen 0 0\ndisk read EIO 2\nprinter fail\nwindows\nstate "
      "Count\n"
      "image Clipboard 1 2");
  EXPECT_EQ(host.Run(), 0) << host.complaint;
  EXPECT_THAT(host.outs, ElementsAre("Port A", "B"));
  EXPECT_EQ(host.faults, "midiOutOpen 4 1;midiOutOpen 0 0;read EIO 2;");
  EXPECT_THAT(host.lines, ElementsAre("value Count 0", "bytes 01 02"));
}

TEST(ScriptEngine, AfterTheEndOfTheProgramNothingIsTakenButCommentsAndBlankLines) {
  EXPECT_EQ(StatusOf("quit\n\n# the end\n"), 0);
  for (const std::string_view line : {"quit", "get frmMain", "state Count", "press mnuNew", "wait 1", "windows",
                                      "start", "fail midiOutOpen 1", "image Clipboard 1 1", "close frmMain"}) {
    EXPECT_EQ(StatusOf("quit\n" + std::string(line)), 1) << line;
  }
  EXPECT_EQ(StatusOf("close frmMain\nget frmMain"), 1);
  EXPECT_EQ(StatusOf("quit\nnonsense"), 2);
}

TEST(ScriptEngine, QuitClosesTheMainWindowAndSoAllOthers) {
  const Result result = AfterStart("press mnuNew\nquit");
  EXPECT_EQ(result.status, 0);
  EXPECT_THAT(result.lines,
              ElementsAre("open 0 frmToy(2) \"Toy 2\"", "close 0 frmToy(1)", "close 0 frmToy(2)", "close 0 frmMain"));
}

TEST(ScriptEngine, ABoxIsAnsweredByTheNextAnswerOfTheScript) {
  const Result result =
      AfterStart("press mnuYesNo\nanswer no\npress mnuYesNoCancel\nanswer cancel\npress mnuYesNo\nanswer yes");
  EXPECT_EQ(result.status, 0) << result.complaint;
  EXPECT_THAT(result.lines, ElementsAre("box 0 52 \"Q\" \"Yes\\nor no?\"", "box 0 51 \"Q\" \"Well?\"",
                                        "box 0 52 \"Q\" \"Yes\\nor no?\""));
  EXPECT_THAT(result.log, ElementsAre("answer 7", "answer 2", "answer 6"));
}

TEST(ScriptEngine, ABoxWithNothingButOkAnswersItself) {
  const Result result = AfterStart("press mnuNote\nget mnuToggle");
  EXPECT_EQ(result.status, 0);
  EXPECT_THAT(result.lines, ElementsAre("box 0 48 \"Note\" \"Noted.\"", "value mnuToggle 0"));
}

TEST(ScriptEngine, ABoxRefusesAButtonThatItHasNot) {
  EXPECT_EQ(StatusOf("press mnuYesNo\nanswer cancel"), 1);
  EXPECT_EQ(StatusOf("press mnuYesNo\nanswer ok"), 1);
  EXPECT_EQ(StatusOf("press mnuYesNoCancel\nanswer ok"), 1);
}

TEST(ScriptEngine, WhileABoxIsOpenReadersAreTakenAndNothingElse) {
  const Result result = AfterStart(
      "press mnuYesNo\nget frmMain\nstate Count\nimage frmToy(1) 2 2\n\n# comment\nshow frmMain\nanswer yes");
  EXPECT_EQ(result.status, 0) << result.complaint;
  EXPECT_EQ(result.lines[3], "bytes 02 FF");
  for (const std::string_view line : {"press mnuNew", "wait 5", "quit", "file x", "file cancel", "windows",
                                      "instrument", "close frmToy(1)", "fail midiOutOpen 1", "start", "printer ok"}) {
    EXPECT_EQ(StatusOf("press mnuYesNo\n" + std::string(line)), 3) << line;
  }
  EXPECT_EQ(StatusOf("press mnuYesNo\nnonsense"), 2);
  EXPECT_EQ(StatusOf("press mnuYesNo\nwait x"), 2);
  EXPECT_EQ(StatusOf("press mnuYesNo\nget frmNone"), 1);
}

TEST(ScriptEngine, AScriptThatEndsWhileSomethingIsOpenHasNoAnswer) {
  EXPECT_EQ(StatusOf("press mnuYesNo"), 3);
  EXPECT_EQ(StatusOf("press mnuOpen"), 3);
  EXPECT_EQ(StatusOf("press mnuModal"), 3);
  const Result result = AfterStart("press mnuYesNo\n");
  EXPECT_THAT(result.log, IsEmpty());
}

TEST(ScriptEngine, ADialogIsAnsweredWithAPath) {
  const Result result = AfterStart(
      "press mnuOpen\nfile a.toy\npress mnuOpen\nfile /x/b filter=2 readonly=1\npress mnuOpen\nfile cancel\n"
      "press mnuOpen\nfile \"cancel\" readonly=0\npress mnuOpen\nget frmMain\nfile ../c");
  EXPECT_EQ(result.status, 0) << result.complaint;
  EXPECT_EQ(result.lines[0], "dialog 0 open \"Open\" filter=1 dir=\"/disk\" name=\"a.toy\" readonly=0");
  EXPECT_THAT(result.log, ElementsAre("/toys/a.toy filter 1", "/x/b filter 2 read-only", "cancelled",
                                      "/toys/cancel filter 1", "/toys/../c filter 1"));
}

TEST(ScriptEngine, ASaveDialogAddsItsExtensionWhereThereIsNone) {
  const Result result = AfterStart(
      "press mnuSave\nfile a\npress mnuSave\nfile a.b\npress mnuSave\nfile a.b/c\npress mnuSave\nfile .toy\n"
      "press mnuOpen\nfile a");
  EXPECT_EQ(result.status, 0) << result.complaint;
  EXPECT_THAT(result.log, ElementsAre("/toys/a.toy filter 1", "/toys/a.b filter 1", "/toys/a.b/c.toy filter 1",
                                      "/toys/.toy.toy filter 1", "/toys/a filter 1"));
}

TEST(ScriptEngine, ADialogCanBeLeftWithoutAName) {
  const Result result = AfterStart("press mnuOpen\nfile \"\"\npress mnuSave\nfile \"\" filter=2");
  EXPECT_EQ(result.status, 0) << result.complaint;
  EXPECT_THAT(result.log, ElementsAre(" filter 1", " filter 2"));
}

TEST(ScriptEngine, ADialogRefusesWhatItCanNotHold) {
  EXPECT_EQ(StatusOf("press mnuOpen\nfile a filter=3"), 1);
  EXPECT_EQ(StatusOf("press mnuOpen\nfile a filter=0"), 1);
  EXPECT_EQ(StatusOf("press mnuSave\nfile a readonly=1"), 1);
  EXPECT_EQ(StatusOf("press mnuOpen\nfile \"a\\x00b\""), 1);
  EXPECT_EQ(StatusOf("press mnuOpen\nanswer yes"), 3);
  EXPECT_EQ(StatusOf("press mnuOpen\npress mnuNew"), 3);
}

TEST(ScriptEngine, WhileAModalFormIsOpenOnlyItIsInReach) {
  const Result result = AfterStart(
      "press mnuModal\ntype frmModal.Text1 abc\nwait 5\nget frmModal.Text1\nget frmToy(1)\nmove frmModal 1 2\n"
      "windows\npress frmModal.CommOK\npress frmToy(1).Comm");
  EXPECT_EQ(result.status, 0) << result.complaint;
  EXPECT_THAT(result.lines, ElementsAre("open 0 frmModal \"Modal\"", "value frmModal.Text1 \"abc\"",
                                        "value frmToy(1) \"Toy 1\"", "value frmToy(1) \"Toy 1\"", "close 5 frmModal"));
  EXPECT_THAT(result.log, ElementsAre("modal closed", "Comm"));
  for (const std::string_view line : {"press frmToy(1).Comm", "press mnuNew", "quit", "close frmToy(1)",
                                      "activate frmToy(1)", "move frmToy(1) 1 1", "menu frmToy(1)", "answer yes"}) {
    EXPECT_EQ(StatusOf("press mnuModal\n" + std::string(line)), 1) << line;
  }
}

TEST(ScriptEngine, AModalFormMayBeClosedByItsFrame) {
  EXPECT_THAT(AfterStart("press mnuModal\nclose frmModal").log, ElementsAre("modal closed"));
}

TEST(ScriptEngine, TimersRunInOrderWhileTheScriptWaits) {
  const Result result = AfterStart("wait 99\nget frmToy(1).Timer1\nwait 1");
  EXPECT_THAT(result.log, ElementsAre("Timer1 at 100"));
}

TEST(ScriptEngine, ATimerIsEnabledWhileItRuns) {
  const Result result = AfterStart(
      "get frmToy(1).Timer1.enabled\nwait 99\nget frmToy(1).Timer1.enabled\nwait 1\nget frmToy(1).Timer1.enabled");
  EXPECT_EQ(result.status, 0);
  EXPECT_THAT(result.lines, ElementsAre("value frmToy(1).Timer1.enabled 1", "value frmToy(1).Timer1.enabled 1",
                                        "value frmToy(1).Timer1.enabled 0"));
}

TEST(ScriptEngine, AWaitOfManyDaysIsNotCutShort) {
  EXPECT_THAT(AfterStart("wait 3000000000\npress mnuModal\nclose frmModal").lines.front(),
              HasSubstr("open 3000000000 frmModal"));
  EXPECT_EQ(StatusOf("wait 99999999999999999999\nwait 99999999999999999999"), 0);
  EXPECT_EQ(StatusOf("wait -99999999999999999999"), 2);
}

TEST(ScriptEngine, ABoxInATimerIsAnsweredWithinTheWait) {
  ToyHost host("start\nwait 500\nanswer yes\nget frmToy(1).Timer1");
  host.toy.Start();
  host.console.RunChain([&host] { return host.toy.reopening; });
  ToyChild& child = static_cast<ToyChild&>(*host.console.FindForm("frmToy(1)"));
  child.Timer1.on_timer = [&] { host.console.MessageBox(BoxStyle::kYesNo, "T", "Now?"); };
  host.lines.clear();
  EXPECT_EQ(host.Run(), 0) << host.complaint;
  EXPECT_THAT(host.lines, testing::Contains("box 100 52 \"T\" \"Now?\""));
  EXPECT_EQ(host.console.Now(), 500);
}

TEST(ScriptEngine, AQuestionAtTheEndMayKeepTheProgramRunning) {
  ToyHost host("start\nquit\nanswer no\nget frmMain\nquit\nanswer yes\n");
  host.toy.asks_at_close = true;
  EXPECT_EQ(host.Run(), 0) << host.complaint;
  EXPECT_TRUE(host.console.main_closed());
  EXPECT_THAT(host.lines, testing::Contains("value frmMain \"Toy program\""));
}

TEST(ScriptEngine, CloseIsDoneWhenTheWindowRefuses) {
  ToyHost host("start\nclose frmToy(1)\nanswer no\nget frmToy(1)");
  host.toy.asks_at_close = true;
  EXPECT_EQ(host.Run(), 0) << host.complaint;
}

TEST(ScriptEngine, ShowPrintsEveryControlInTheOrderOfDeclaration) {
  const Result result = AfterStart("show frmToy(1)\nshow frmMain");
  ASSERT_EQ(result.lines.size(), 19U + 17U);
  EXPECT_EQ(result.lines[0], "value frmToy(1).Label1 \"a \\\"label\\\"\"");
  EXPECT_EQ(result.lines[9], "value frmToy(1).VScroll1(0) 0");
  EXPECT_EQ(result.lines[17], "value frmToy(1).Curve \"\"");
  EXPECT_EQ(result.lines[18], "value frmToy(1).Timer1 100");
  EXPECT_EQ(result.lines[19], "value frmMain.Label1 \"\"");
  EXPECT_EQ(result.lines[20], "value mnuFile 0");
  EXPECT_EQ(result.lines[35], "value frmMain.TimerAuto(2) 10");
}

TEST(ScriptEngine, WindowsPrintsTheChildWindowsInTheOrderOfOpening) {
  EXPECT_THAT(AfterStart("press mnuNew\nactivate frmToy(1)\nwindows").lines,
              ElementsAre("open 0 frmToy(2) \"Toy 2\"", "value frmToy(1) \"Toy 1\"", "value frmToy(2) \"Toy 2\""));
}

TEST(ScriptEngine, ImagePrintsBytesAndZerosBehindTheEnd) {
  EXPECT_THAT(AfterStart("image frmToy(1) 2 4\nimage Clipboard 1 1\nimage frmToy(1) 1 0").lines,
              ElementsAre("bytes 02 FF 00 00", "bytes 01", "bytes"));
}

TEST(ScriptEngine, TheInstrumentAndTheStateArePrintedAsValues) {
  ToyHost host("start\ninstrument\nstate Name");
  host.instrument = NamedValues{{"mode", std::int64_t{3}}, {"name", std::string("a b")}};
  EXPECT_EQ(host.Run(), 0);
  EXPECT_THAT(std::vector<std::string>(host.lines.begin() + 2, host.lines.end()),
              ElementsAre("value mode 3", "value name \"a b\"", "value Name \"toy\""));
}

TEST(ScriptEngine, TheStartOfTheFileMayBearAByteOrderMark) {
  ToyHost host("\xEF\xBB\xBF# comment\nstart");
  EXPECT_EQ(host.Run(), 0) << host.complaint;
}

TEST(ScriptEngine, WindowsStayInReachWhateverRandomLinesSay) {
  std::mt19937 random(11032004);
  const std::vector<std::string> words = {"start",
                                          "press",
                                          "select",
                                          "set",
                                          "type",
                                          "key",
                                          "double",
                                          "mouse",
                                          "menu",
                                          "activate",
                                          "close",
                                          "resize",
                                          "move",
                                          "maximize",
                                          "minimize",
                                          "restore",
                                          "answer",
                                          "file",
                                          "wait",
                                          "quit",
                                          "get",
                                          "show",
                                          "image",
                                          "windows",
                                          "frmMain",
                                          "frmToy(1)",
                                          "frmToy(1).List1",
                                          "frmToy(1).Comm",
                                          "mnuNew",
                                          "mnuModal",
                                          "mnuYesNo",
                                          "mnuOpen",
                                          "frmModal.CommOK",
                                          "yes",
                                          "no",
                                          "cancel",
                                          "0",
                                          "1",
                                          "-1",
                                          "100",
                                          "none",
                                          "down",
                                          "Enter",
                                          "\"a b\"",
                                          "frmToy(2).Tab1"};
  int done = 0;
  for (int round = 0; round < 3000; ++round) {
    std::string script = "start\n";
    for (int line = 0; line < 12; ++line) {
      for (std::size_t count = 1 + random() % 3; count > 0; --count) script += words[random() % words.size()] + ' ';
      script += '\n';
    }
    ToyHost host(script);
    const int status = host.Run();
    EXPECT_TRUE(status >= 0 && status <= 3);
    EXPECT_EQ(status == 0, host.complaint.empty()) << script;
    done += status == 0 ? 1 : 0;
  }
  EXPECT_LT(done, 3000);
}

}  // namespace
}  // namespace zentaline::ui
