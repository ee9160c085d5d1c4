// What Qt exports to screen readers, and what the keyboard reaches, of the program's dialogs and of Qt's own.

#include <gmock/gmock.h>

#include <QAccessible>
#include <QApplication>
#include <QLabel>
#include <QPalette>
#include <QTest>
#include <QTimer>
#include <functional>
#include <map>
#include <memory>
#include <set>
#include <string>

#include "platform/desktop/desktop_platform.h"
#include "platform/headless/headless_desktop.h"
#include "support/every_dialog.h"
#include "toolkit/dialog_rules.h"

namespace quorvale {
namespace {

using testing::Contains;
using testing::StartsWith;
using Visit = std::function<void(QAccessibleInterface&)>;

// All visible objects, from the outside in.
void Walk(QAccessibleInterface* object, const Visit& visit) {
  if (object == nullptr || object->state().invisible) return;
  visit(*object);
  for (int i = 0; i < object->childCount(); ++i) Walk(object->child(i), visit);
}

// Of a drop-down list Qt exports the chosen item as its name, and the label as a relation.
std::string NameOf(const QAccessibleInterface& object) {
  if (object.role() != QAccessible::ComboBox) return object.text(QAccessible::Name).toStdString();
  const auto related = object.relations(QAccessible::Label);
  return related.isEmpty() ? "" : related.first().first->text(QAccessible::Name).toStdString();
}

// Whether the user can do something with it now. The Tab key comes to the chosen one of a group of option buttons only.
bool IsTabStop(const QAccessibleInterface& object) {
  const QAccessible::State state = object.state();
  const bool is_unchosen = object.role() == QAccessible::RadioButton && !state.checked;
  return state.focusable && !state.disabled && !is_unchosen;
}

std::string FocusedName() {
  const QWidget* widget = QApplication::focusWidget();
  while (widget != nullptr && widget->objectName().isEmpty()) widget = widget->parentWidget();
  return widget != nullptr ? widget->objectName().toStdString() : "";
}

class AccessibilityTest : public testing::Test {
 protected:
  using Objects = std::map<std::string, QAccessibleInterface*>;

  // Calls `visit` with each dialog and its visible controls.
  template <typename Visitor>
  void VisitObjects(Visitor visit) {
    VisitDialogs(process_, [&](const Form& form) {
      platform_.PumpEvents();
      window_ = QWidget::find(static_cast<WId>(form.Hwnd()));
      Objects objects;
      Walk(QAccessible::queryAccessibleInterface(window_), [&](QAccessibleInterface& object) {
        const std::string name = object.object() != nullptr ? object.object()->objectName().toStdString() : "";
        if (!name.empty()) objects[name] = &object;
      });
      visit(form, objects);
    });
  }

  // Those of the form's controls of that kind which are visible.
  template <typename Kind>
  static void ExpectRole(const Form& form, const Objects& objects, QAccessible::Role role) {
    form.ForEach<Kind>([&](const Kind& control) {
      const auto found = objects.find(control.Name());
      if (found == objects.end()) return;
      EXPECT_EQ(found->second->role(), role) << control.Name();
      EXPECT_EQ(NameOf(*found->second), SpokenName(control)) << control.Name();
    });
  }

  HeadlessDesktop services_;
  DesktopPlatform platform_{{.application_title = "Test", .pixels = PixelKind::kLogical, .pass_lengths = {}}};
  Process process_{platform_, services_.Services()};
  QWidget* window_ = nullptr;
};

TEST_F(AccessibilityTest, ControlsHaveTheirNamesAndRoles) {
  VisitObjects([&](const Form& form, const Objects& objects) {
    ExpectRole<Button>(form, objects, QAccessible::Button);
    ExpectRole<CheckBox>(form, objects, QAccessible::CheckBox);
    ExpectRole<DropDownList>(form, objects, QAccessible::ComboBox);
    ExpectRole<Label>(form, objects, QAccessible::StaticText);
    ExpectRole<ListBox>(form, objects, QAccessible::List);
    ExpectRole<OptionButton>(form, objects, QAccessible::RadioButton);
    ExpectRole<Slider>(form, objects, QAccessible::Slider);
    ExpectRole<TextBox>(form, objects, QAccessible::EditableText);
    form.ForEach<ImageView>([&](const ImageView& image) {
      const bool is_link = image.Click != nullptr;
      QAccessibleInterface& object = *objects.at(image.Name());
      EXPECT_EQ(object.role(), is_link ? QAccessible::Link : QAccessible::Graphic) << image.Name();
      if (is_link) object.actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    });
    EXPECT_GE(objects.size(), 5U) << form.Name();
    Walk(QAccessible::queryAccessibleInterface(window_), [&](QAccessibleInterface& object) {
      EXPECT_TRUE(!object.state().focusable || !NameOf(object).empty()) << object.role() << " on " << form.Name();
    });
  });
  EXPECT_THAT(services_.calls, Contains(StartsWith("ShellExecute"))) << "the link was pressed";
}

TEST_F(AccessibilityTest, TheTabKeyComesToEveryControl) {
  VisitObjects([&](const Form& form, const Objects& objects) {
    EXPECT_TRUE(QTest::qWaitForWindowActive(window_));
    std::set<std::string> wanted;
    for (const auto& [name, object] : objects) {
      if (IsTabStop(*object)) wanted.insert(name);
    }
    std::set<std::string> visited;
    for (std::size_t i = 0; i < objects.size(); ++i) {
      QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
      visited.insert(FocusedName());
    }
    EXPECT_EQ(visited, wanted) << form.Name();
  });
}

TEST_F(AccessibilityTest, TextIsReadableOnADarkBackground) {
  const QPalette usual = QApplication::palette();
  QApplication::setPalette(QPalette(Qt::white, QColor(0x2D2D2D), Qt::gray, Qt::black, Qt::gray, Qt::white, Qt::white,
                                    Qt::black, QColor(0x2D2D2D)));
  VisitObjects([&](const Form& form, const Objects& /*objects*/) {
    for (const QLabel* const label : window_->findChildren<QLabel*>()) {
      const Colour text = ToColour(label->palette().color(QPalette::WindowText));
      const Colour background = ToColour(label->palette().color(QPalette::Window));
      if (label->text().isEmpty()) continue;
      EXPECT_EQ(ReadableColour(text, background), text) << form.Name() << " " << label->objectName().toStdString();
    }
  });
  QApplication::setPalette(usual);
}

// Qt names most of the controls in its dialogs.
TEST_F(AccessibilityTest, DialogsOfTheToolkitAreNamed) {
  const std::shared_ptr<Form> owner = std::make_shared<AboutForm>(process_);
  owner->Show();
  const std::function<void()> dialogs[] = {
      [&] { platform_.ShowFileDialog(owner->Window(), {.title = "Open", .filter = "Lists (*.qvl)|*.qvl|All|*.*"}); },
      [&] { platform_.BrowseForFolder(owner->Window(), "Folder"); },
      [&] { platform_.ShowColourDialog(owner->Window(), kBlack); },
      [&] { platform_.ShowMessageBox({.text = "Text", .buttons = MessageBoxButtons::kYesNoCancel}); },
  };
  for (const auto& show : dialogs) {
    int named = 0;
    QTimer::singleShot(200, [&named] {
      QWidget* const dialog = QApplication::activeModalWidget();
      Walk(QAccessible::queryAccessibleInterface(dialog), [&named](QAccessibleInterface& object) {
        const bool is_cell = object.role() == QAccessible::TreeItem || object.role() == QAccessible::ListItem;
        if (!object.state().focusable || is_cell) return;
        EXPECT_NE(NameOf(object), "") << object.role() << " " << object.object()->objectName().toStdString();
        ++named;
      });
      dialog->close();
    });
    show();
    EXPECT_GE(named, 3);
  }
  owner->Unload();
}

}  // namespace
}  // namespace quorvale
