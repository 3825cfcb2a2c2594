// The input dialog, the class or phase choice and the item selection on
// real windows: the number rules at OK and while typing, the validator's
// road, the three kinds, how prompt and note size the dialog, single and
// ticked selections, the option buttons and the list's commands.
#include <gtest/gtest.h>

#include <wx/button.h>
#include <wx/choice.h>
#include <wx/combobox.h>
#include <wx/radiobut.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>

#include <X11/keysym.h>

#include <vector>

#include "dialogs/SelectNewClassDialog.h"
#include "dialogs/VxInputDialog.h"
#include "harness/GuiTestUtilities.h"
#include "harness/ModalDialogScript.h"
#include "lists/SelectItemDialog.h"
#include "lists/VxListCtrl.h"
#include "platform/WinUser.h"
#include "utl/KarvinFilterValidator.h"
#include "work/XTestInput.h"

namespace {

void Press(wxDialog & dialog, int id) {
  wxWindow * button = nullptr;
  for (wxWindow * child : dialog.GetChildren())
    if (child->GetId() == id) button = child;
  ASSERT_NE(button, nullptr) << id;
  wxCommandEvent click(wxEVT_BUTTON, id);
  click.SetEventObject(button);
  button->ProcessWindowEvent(click);
}

template <typename T>
T * Child(wxDialog & dialog, int id) {
  for (wxWindow * child : dialog.GetChildren())
    if (child->GetId() == id) return dynamic_cast<T *>(child);
  return nullptr;
}

TEST(VxInputDialog, NumbersAreJudgedAtOkByTheirLimits) {
  constexpr int kNone = VxInputDialog::kNoLowest;
  constexpr int kNoTop = VxInputDialog::kNoHighest;
  struct Case {
    int lowest, highest;
    char const * text;
    char const * message;  // empty: accepted
  };
  Case const cases[] = {
      {kNone, kNoTop, "pasted words", ""},
      {1, 10, "10", ""},
      {1, 10, "1", ""},
      {1, 10, "11", "Please enter a number between 1 and 10."},
      {1, 10, "", "Please enter a number between 1 and 10."},  // empty is 0
      {1, 10, "  7abc", ""},                                   // read as 7
      {kNone, 5, "5", ""},
      {kNone, 5, "6", "Please enter a number less than 5."},
      {3, kNoTop, "3", ""},
      {3, kNoTop, "2", "Please enter a number greater than 3."},
      {0, kNoTop, "99999999999", ""},  // held at the largest int
      {kNone, 0, "-99999999999", ""},
  };
  for (auto const & c : cases) {
    wxString value = "start";
    VxInputDialog dialog(L"Runs", L"How many runs?", L"", value);
    dialog.SetNumberOnly(c.lowest, c.highest);
    ModalDialogScript script;
    bool stayed = false;
    script.Act([&](wxDialog & d) {
      Child<wxTextCtrl>(d, VxInputDialog::kEdit)->ChangeValue(c.text);
      Press(d, IDOK);
      stayed = d.IsModal();
      if (stayed) d.EndModal(IDCANCEL);
    });
    if (*c.message != 0) script.Answer(wxID_OK);
    int const result = dialog.DoModal();
    EXPECT_EQ(result, *c.message == 0 ? IDOK : IDCANCEL) << c.text;
    EXPECT_EQ(stayed, *c.message != 0) << c.text;
    if (*c.message != 0) {
      ASSERT_EQ(script.Shown().size(), 2U) << c.text;
      EXPECT_EQ(script.Shown()[1].message, c.message);
      EXPECT_EQ(value, "start") << "a refused value leaves the caller's string";
    } else {
      EXPECT_EQ(value, c.text);
    }
  }
}

TEST(VxInputDialog, TypingTakesDigitsOnlyAndTheLimitCountsCharacters) {
  wxString value;
  VxInputDialog dialog(nullptr, L"", L"Count:", L"", value, 3);
  dialog.SetNumberOnly(VxInputDialog::kNoLowest, VxInputDialog::kNoHighest);
  ModalDialogScript script;
  wxString typed;
  wxString title;
  script.Act([&](wxDialog & d) {
    ASSERT_TRUE(gui_test::WaitUntil([&] { return d.IsActive(); }));
    for (KeySym key : {XK_a, XK_minus, XK_1, XK_space, XK_2, XK_3, XK_4}) {
      FakeKey(key);
      gui_test::Flush();
    }
    typed = Child<wxTextCtrl>(d, VxInputDialog::kEdit)->GetValue();
    title = d.GetTitle();
    d.EndModal(IDCANCEL);
  });
  dialog.DoModal();
  EXPECT_EQ(typed, "123");
  EXPECT_FALSE(title.empty()) << "an empty title becomes the application's name";
}

TEST(VxInputDialog, ARefusingValidatorKeepsTheDialogOpen) {
  struct Refuser : KarvinFilterValidator {
    bool IsValid(char const * text) override {
      seen = text;
      return seen != "bad";
    }
    void Error(wxWindow * parent) override { errorParents.push_back(parent); }
    std::string seen;
    std::vector<wxWindow *> errorParents;
  } validator;
  wxString value = "bad";
  VxInputDialog dialog(L"Filter", L"Filter:", L"", value, 0, &validator);
  ModalDialogScript script;
  script.Act([&](wxDialog & d) {
    Press(d, IDOK);
    EXPECT_TRUE(d.IsModal());
    EXPECT_EQ(validator.errorParents, std::vector<wxWindow *>{&d});
    Child<wxTextCtrl>(d, VxInputDialog::kEdit)->ChangeValue(wxString::FromUTF8("größe > 3"));
    Press(d, IDOK);
  });
  EXPECT_EQ(dialog.DoModal(), IDOK);
  EXPECT_EQ(validator.seen, "größe > 3") << "the text reaches the validator in UTF-8";
  EXPECT_EQ(value, wxString::FromUTF8("größe > 3"));
}

TEST(VxInputDialog, TheKindsShowAnEditAChoiceBesideItOrAChoiceAlone) {
  std::vector<wxString> const choices{"Linear", "Quadratic", "Cubic"};
  {
    wxString value = "fit";
    VxInputDialog beside(nullptr, L"Fit", L"Name:", L"", value, 0, nullptr, &choices);
    ModalDialogScript script;
    script.Act([&](wxDialog & d) {
      auto * combo = Child<wxChoice>(d, VxInputDialog::kChoices);
      ASSERT_NE(combo, nullptr);
      EXPECT_EQ(combo->GetCount(), 3U);
      combo->SetSelection(1);
      Press(d, IDOK);
    });
    EXPECT_EQ(beside.DoModal(), IDOK);
    EXPECT_EQ(beside.GetKind(), 1);
    EXPECT_EQ(beside.GetComboCurSel(), 1);
    EXPECT_EQ(value, "fit");
  }
  VxInputDialog alone(L"Fit", L"Model:", L"", choices, 2, nullptr);
  ModalDialogScript script;
  script.Act([&](wxDialog & d) {
    EXPECT_EQ(Child<wxTextCtrl>(d, VxInputDialog::kEdit), nullptr) << "the edit is gone";
    auto * combo = Child<wxChoice>(d, VxInputDialog::kEdit);
    ASSERT_NE(combo, nullptr) << "the choice takes the edit's number";
    EXPECT_EQ(combo->GetSelection(), 2);
    combo->SetSelection(0);
    Press(d, IDOK);
  });
  EXPECT_EQ(alone.DoModal(), IDOK);
  EXPECT_EQ(alone.GetComboCurSel(), 0);
}

TEST(VxInputDialog, ALongPromptGrowsTheDialogAndAnEmptyNoteClosesUp) {
  struct Layout {
    int promptHeight = 0, okTop = 0, height = 0;
    bool noteShown = false;
  };
  auto measure = [](wchar_t const * prompt, wchar_t const * note) {
    wxString value;
    VxInputDialog dialog(L"Layout", prompt, note, value);
    Layout layout;
    ModalDialogScript script;
    script.Act([&](wxDialog & d) {
      layout.promptHeight = Child<wxStaticText>(d, VxInputDialog::kPrompt)->GetSize().y;
      layout.okTop = Child<wxButton>(d, IDOK)->GetPosition().y;
      layout.height = d.GetClientSize().y;
      layout.noteShown = Child<wxStaticText>(d, VxInputDialog::kNote)->IsShown();
      gui_test::Snapshot(d, "input-dialog");
      d.EndModal(IDCANCEL);
    });
    dialog.DoModal();
    return layout;
  };
  std::wstring longPrompt;
  for (int word = 0; word < 40; ++word) longPrompt += L"word ";
  Layout const shortWithNote = measure(L"Name:", L"A note below the edit.");
  Layout const longWithNote = measure((L"Name " + longPrompt).c_str(), L"A note below the edit.");
  Layout const shortWithout = measure(L"Name:", L"");
  EXPECT_TRUE(shortWithNote.noteShown);
  EXPECT_FALSE(shortWithout.noteShown);
  EXPECT_GT(longWithNote.promptHeight, shortWithNote.promptHeight * 2)
      << "wrapped at 70 characters";
  int const gained = longWithNote.promptHeight - shortWithNote.promptHeight;
  EXPECT_EQ(longWithNote.okTop - shortWithNote.okTop, gained);
  EXPECT_EQ(longWithNote.height - shortWithNote.height, gained);
  EXPECT_LT(shortWithout.height, shortWithNote.height);
  EXPECT_EQ(shortWithNote.height - shortWithout.height, shortWithNote.okTop - shortWithout.okTop);
}

TEST(SelectNewClassDialog, OffersANewNumberedClassOrTheExistingPhases) {
  struct Case {
    std::vector<wxString> names;
    char const * name;
  };
  Case const cases[] = {
      {{}, "1"},     {{"A", "b"}, "1"}, {{"1", "2", "x", "10"}, "11"}, {{"-5", "003"}, "4"},
      {{"7a"}, "1"},
  };
  for (auto const & c : cases) EXPECT_EQ(SelectNewClassDialog::DefaultClassName(c.names), c.name);

  SelectNewClassDialog classes({"1", "2"}, false, nullptr);
  ModalDialogScript script;
  script.Act([&](wxDialog & d) {
    auto * box = Child<wxComboBox>(d, SelectNewClassDialog::kClasses);
    EXPECT_TRUE(box->IsShown());
    EXPECT_FALSE(Child<wxChoice>(d, SelectNewClassDialog::kPhases)->IsShown());
    EXPECT_EQ(box->GetString(0), "No class");
    EXPECT_EQ(box->GetValue(), "3");
    Press(d, IDOK);
  });
  script.Act([&](wxDialog & d) {
    EXPECT_FALSE(Child<wxComboBox>(d, SelectNewClassDialog::kClasses)->IsShown());
    auto * phases = Child<wxChoice>(d, SelectNewClassDialog::kPhases);
    EXPECT_EQ(phases->GetCount(), 2U);
    phases->SetSelection(1);
    Press(d, IDOK);
  });
  EXPECT_EQ(classes.DoModal(), IDOK);
  EXPECT_EQ(classes.GetSelected(), "3");
  SelectNewClassDialog phases({"Heating", "Cooling"}, true, nullptr);
  EXPECT_EQ(phases.DoModal(), IDOK);
  EXPECT_EQ(phases.GetSelected(), "Cooling");
}

std::vector<wxString> Items(int count) {
  std::vector<wxString> items;
  items.reserve(static_cast<size_t>(count));
  for (int i = 0; i < count; ++i) items.push_back(wxString::Format("Run %d", i));
  return items;
}

TEST(SelectItemDialog, ASingleSelectionStartsAtItsIndexAndNeedsOneUnlessNoneIsAllowed) {
  std::vector<wxString> const items = Items(5);
  struct Case {
    int start;
    bool allowNone;
    int selectInDialog;  // -1: leave it
    bool ends;
    int result;
  };
  Case const cases[] = {
      {2, false, -1, true, 2},
      {7, false, -1, false, 7},  // beyond the list: nothing selected
      {7, true, -1, true, -1},
      {-1, false, 4, true, 4},
  };
  for (auto const & c : cases) {
    int selected = c.start;
    bool stayed = false;
    int shownSelection = -2;
    ModalDialogScript script;
    script.Act([&](wxDialog & d) {
      auto * list = dynamic_cast<VxListCtrl *>(Child<wxWindow>(d, SelectItemDialog::kList));
      ASSERT_NE(list, nullptr);
      shownSelection = list->GetSelIndex();
      if (c.selectInDialog >= 0) list->SetSelIndex(c.selectInDialog);
      Press(d, IDOK);
      stayed = d.IsModal();
      if (stayed) d.EndModal(IDCANCEL);
    });
    VxSingleSelectItemDialog(L"Runs", L"Pick a run:", L"", items, &selected, c.allowNone, nullptr);
    EXPECT_EQ(shownSelection, c.start >= 0 && c.start < 5 ? c.start : -1) << c.start;
    EXPECT_EQ(stayed, !c.ends) << c.start;
    EXPECT_EQ(selected, c.result) << c.start;
  }
}

TEST(SelectItemDialog, TicksComeInAndOutAndTheListsCommandsChangeThem) {
  std::vector<wxString> const items = Items(6);
  std::vector<int> selected{1, 4, 9};  // 9 is beyond the list
  std::vector<int> shownTicks;
  std::vector<int> afterCommands;
  ModalDialogScript script;
  script.Act([&](wxDialog & d) {
    auto & dialog = dynamic_cast<SelectItemDialog &>(d);
    dialog.GetList()->GetCheckedIndexes(shownTicks);
    gui_test::Snapshot(d, "select-item-dialog");
    dialog.RunCommand(SelectItemDialog::kSelectComplement);  // 0 2 3 5
    dialog.GetList()->SetSelIndexes({0, 1});
    dialog.RunCommand(SelectItemDialog::kUnselectMarked);  // 2 3 5
    dialog.GetList()->SetSelIndexes({4});
    dialog.RunCommand(SelectItemDialog::kSelectMarked);  // 2 3 4 5
    dialog.GetList()->GetCheckedIndexes(afterCommands);
    Press(d, IDOK);
  });
  EXPECT_EQ(
      VxMultiSelectItemDialog(L"Runs", L"Tick the runs:", L"Run", items, &selected, false, nullptr),
      IDOK);
  EXPECT_EQ(shownTicks, (std::vector<int>{1, 4}));
  EXPECT_EQ(afterCommands, (std::vector<int>{2, 3, 4, 5}));
  EXPECT_EQ(selected, afterCommands);
}

TEST(SelectItemDialog, OptionsAreLabelledInTheirOrderAndOneMustBeTicked) {
  std::vector<wxString> const items = Items(3);
  std::vector<wxString> const options{"One", "Two", "Three", "Four", "Five", "Six", "Seven"};
  int option = 0;  // out of range: none ticked
  std::vector<int> selected{0};
  ModalDialogScript script;
  std::vector<wxString> labels;
  bool stayed = false;
  script.Act([&](wxDialog & d) {
    // The template shares its number with the second option button: the
    // lookup finds the button, not the dialog.
    auto & dialog = dynamic_cast<VxDialog &>(d);
    EXPECT_NE(dialog.GetDlgItem(16261), &d);
    for (int id : SelectItemDialog::kOptionButtons) {
      auto * button = Child<wxRadioButton>(d, id);
      labels.push_back(button->GetLabel());
      EXPECT_FALSE(button->GetValue()) << id;
    }
    Press(d, IDOK);
    stayed = d.IsModal();
    Child<wxRadioButton>(d, 16266)->SetValue(true);
    Press(d, IDOK);
  });
  script.Answer(wxID_OK);
  EXPECT_EQ(VxOptionMultiSelectItemDialog(L"Export", L"Runs:", L"Run", items, &selected, options,
                                          &option, false, false, nullptr),
            IDOK);
  EXPECT_EQ(labels, (std::vector<wxString>{"One", "Two", "Three", "Four", "Five", "Six"}));
  EXPECT_TRUE(stayed);
  ASSERT_EQ(script.Shown().size(), 2U);
  EXPECT_EQ(script.Shown()[1].message, "No option is selected.");
  EXPECT_EQ(option, 3);
}

}  // namespace
