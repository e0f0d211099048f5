#include "desktop/accessible.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QLabel>

#include "desktop/list_accessible.h"
#include "desktop/list_area.h"
#include "desktop/text.h"
#include "desktop/view.h"

namespace kvt {

namespace {

constexpr const char* announcerName = "announcement";

// The two arrows of a number are one control, which has the number as its value.
class RangeAccessible : public QAccessibleWidget, public QAccessibleValueInterface {
public:
    RangeAccessible(QWidget& widget, RangeControl& range)
        : QAccessibleWidget(&widget, QAccessible::SpinBox), range_(range) {}

    void* interface_cast(QAccessible::InterfaceType type) override {
        if (type == QAccessible::ValueInterface) return static_cast<QAccessibleValueInterface*>(this);
        return QAccessibleWidget::interface_cast(type);
    }
    int childCount() const override { return 0; }
    QAccessibleInterface* child(int) const override { return nullptr; }
    QAccessibleInterface* childAt(int, int) const override { return nullptr; }
    int indexOfChild(const QAccessibleInterface*) const override { return -1; }

    QVariant currentValue() const override { return range_.Value.Get(); }
    void setCurrentValue(const QVariant& value) override { range_.SetValue(value.toInt()); }
    QVariant maximumValue() const override { return range_.Highest(); }
    QVariant minimumValue() const override { return range_.Lowest(); }
    QVariant minimumStepSize() const override { return 1; }

private:
    RangeControl& range_;
};

// Those widgets of the views that the toolkit knows nothing about.
QAccessibleInterface* NewAccessible(const QString&, QObject* object) {
    if (!object->isWidgetType()) return nullptr;
    auto& widget = static_cast<QWidget&>(*object);
    if (auto* area = dynamic_cast<ListArea*>(&widget)) return new ListAccessible(*area);
    if (widget.objectName() == QLatin1String(announcerName))
        return new QAccessibleWidget(&widget, QAccessible::AlertMessage);
    View* const view = View::OfWidget(widget);
    if (!view) return nullptr;
    switch (view->Subject().Kind()) {
        case ControlKind::Frame: return new QAccessibleWidget(&widget, QAccessible::Grouping);
        case ControlKind::PictureBox: return new QAccessibleWidget(&widget, QAccessible::Graphic);
        case ControlKind::UpDown:
            return new RangeAccessible(widget, static_cast<RangeControl&>(view->Subject()));
        default: return nullptr;
    }
}

}  // namespace

void InstallAccessibles() {
    static const bool once = [] {
        QAccessible::installFactory(NewAccessible);
        return true;
    }();
    (void)once;
}

void Announce(QWidget& widget, const QString& text) {
    if (!QAccessible::isActive() || text.isEmpty()) return;
#if QT_VERSION >= QT_VERSION_CHECK(6, 8, 0)
    QAccessibleAnnouncementEvent event(&widget, text);
    QAccessible::updateAccessibility(&event);
#else
    // A message that comes up: it is read because of its role.
    QWidget& window = *widget.window();
    auto* message = window.findChild<QLabel*>(QLatin1String(announcerName), Qt::FindDirectChildrenOnly);
    if (!message) {
        message = new QLabel(&window);
        message->setObjectName(QLatin1String(announcerName));
        message->setAttribute(Qt::WA_TransparentForMouseEvents);
        message->resize(1, 1);
        message->show();
    }
    message->setAccessibleName(text);
    for (const QAccessible::Event what :
         {QAccessible::ObjectHide, QAccessible::ObjectShow, QAccessible::Alert}) {
        QAccessibleEvent event(message, what);
        QAccessible::updateAccessibility(&event);
    }
#endif
}

}  // namespace kvt
