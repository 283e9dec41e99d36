#include "widgets/accessibility/panel_accessible.h"

#include <QAccessibleWidget>
#include <utility>

#include "widgets/accessibility/accessible_events.h"
#include "widgets/accessibility/song_list_accessible.h"

namespace tandem {

namespace {

QAccessible::Role role_of(ControlKind kind) {
  switch (kind) {
    case ControlKind::Key:
    case ControlKind::Stud:
    case ControlKind::ChromeButton:
    case ControlKind::GlassPanel:
    case ControlKind::BevelledPanel:
      return QAccessible::Button;
    case ControlKind::LampButton:
    case ControlKind::SlideSwitch:
      return QAccessible::CheckBox;
    case ControlKind::LeadLamp:
      return QAccessible::RadioButton;
    case ControlKind::Fader:
    case ControlKind::Slider:
      return QAccessible::Slider;
    case ControlKind::Wheel:
    case ControlKind::Rotary:
      return QAccessible::Dial;
    case ControlKind::Spinner:
      return QAccessible::SpinBox;
    case ControlKind::SongList:
      return QAccessible::List;
    case ControlKind::Gauge:
      return QAccessible::ProgressBar;
    case ControlKind::Display:
      return QAccessible::Graphic;
    default:
      return QAccessible::StaticText;
  }
}

class ItemInterface final : public QAccessibleWidget, public QAccessibleValueInterface {
 public:
  explicit ItemInterface(PanelItem* item) : QAccessibleWidget(item, role_of(item->place().kind)), item_(*item) {
    item_.notify_accessibility();
  }

  QString text(QAccessible::Text what) const override {
    if (what == QAccessible::Name) return item().accessible_name();
    if (what == QAccessible::Value) return item().accessible_value();
    // What the screen readers' bus has no other place for: it carries a value as a number only.
    if (what == QAccessible::Description && !item().accessible_description().isEmpty())
      return item().accessible_description();
    return QAccessibleWidget::text(what);
  }

  // A display is a picture, or a meter where it shows a number.
  QAccessible::Role role() const override {
    const QAccessible::Role drawn = QAccessibleWidget::role();
    return drawn == QAccessible::Graphic && item().value_range() ? QAccessible::ProgressBar : drawn;
  }

  QAccessible::State state() const override {
    QAccessible::State state = QAccessibleWidget::state();
    const std::optional<bool> checked = item().checked();
    state.checkable = checked.has_value();
    state.checked = checked.value_or(false);
    return state;
  }

  void* interface_cast(QAccessible::InterfaceType type) override {
    if (type == QAccessible::ValueInterface && item().value_range())
      return static_cast<QAccessibleValueInterface*>(this);
    return QAccessibleWidget::interface_cast(type);
  }

  QStringList actionNames() const override {
    QStringList names = QAccessibleWidget::actionNames();
    if (item().can_press() && item().isEnabled()) names.prepend(pressAction());
    return names;
  }
  // Soon, not now: a press may open a dialog, and who asked waits for the answer meanwhile.
  void doAction(const QString& name) override {
    PanelItem* pressed = &item();
    if (name == pressAction())
      QMetaObject::invokeMethod(
          pressed, [pressed] { pressed->press(); }, Qt::QueuedConnection);
    QAccessibleWidget::doAction(name);
  }

  QVariant currentValue() const override { return range().value; }
  void setCurrentValue(const QVariant& value) override { item().set_value(value.toDouble()); }
  QVariant maximumValue() const override { return range().maximum; }
  QVariant minimumValue() const override { return range().minimum; }
  QVariant minimumStepSize() const override { return range().step; }

 private:
  PanelItem& item() const { return item_; }
  ItemValue range() const { return item_.value_range().value_or(ItemValue{}); }
  PanelItem& item_;
};

QAccessibleInterface* interface_of(const QString&, QObject* object) {
  if (dynamic_cast<PanelCanvas*>(object) != nullptr && object->isWidgetType())
    return new QAccessibleWidget(static_cast<QWidget*>(object), QAccessible::Window);
  if (auto* list = dynamic_cast<SongListItem*>(object)) return new SongListInterface(*list);
  auto* item = dynamic_cast<PanelItem*>(object);
  return item == nullptr ? nullptr : new ItemInterface(item);
}

}  // namespace

void install_accessibility() { QAccessible::installFactory(interface_of); }

void post_description_changed(PanelItem& item) {
  if (!item.notifies_accessibility()) return;
  QAccessibleEvent description(&item, QAccessible::DescriptionChanged);
  post_accessibility_event(description);
}

void post_value_changed(PanelItem& item) {
  if (!item.notifies_accessibility()) return;
  QAccessibleEvent name(&item, QAccessible::NameChanged);
  if (item.place().accessible.find('<') != std::string_view::npos) post_accessibility_event(name);
  const bool differs = item.value_text_changed();  // what changes away from the focus is known when the focus comes
  if (!item.hasFocus() || !differs) return;
  QAccessible::State changed;
  changed.checked = true;
  QAccessibleStateChangeEvent state(&item, changed);
  if (item.checked()) post_accessibility_event(state);
  QAccessibleValueChangeEvent value(&item, item.accessible_value());
  post_accessibility_event(value);
}

}  // namespace tandem
