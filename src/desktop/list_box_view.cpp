#include "desktop/list_box_view.h"

#include <QAbstractListModel>
#include <QPainter>
#include <QStyledItemDelegate>
#include <algorithm>
#include <functional>

#include "desktop/colors.h"
#include "desktop/form_font.h"
#include "desktop/text.h"

namespace kvt {

namespace {

class EntriesModel : public QAbstractListModel {
public:
    EntriesModel(const ListBox& list, QObject* parent) : QAbstractListModel(parent), list_(list) {}
    int rowCount(const QModelIndex& parent) const override { return parent.isValid() ? 0 : list_.Count(); }
    QVariant data(const QModelIndex& index, int role) const override {
        if (index.row() >= list_.Count()) return {};
        const QString entry = ToQt(list_.Entry(index.row()));
        if (role == Qt::DisplayRole) return entry;
        // Code and description in one go.
        return role == Qt::AccessibleTextRole ? entry.simplified() : QVariant();
    }
    void Changed() {
        beginResetModel();
        endResetModel();
    }

private:
    const ListBox& list_;
};

constexpr int entrySpace = 3;  // pixels between the lines of two entries
constexpr int twipsAFixedCharacter = 105;

// Heads above a list of fixed pitch are at the places of its characters.
QFont FontOfHeads(const Scale& lengths) {
    QFont font = FixedPitchFont();
    const double wanted = lengths.Exact(twipsAFixedCharacter);
    font.setPixelSize(std::max(8, static_cast<int>(wanted / 0.6)));
    const double width = QFontMetricsF(font).horizontalAdvance(QLatin1Char('0'));
    font.setLetterSpacing(QFont::AbsoluteSpacing, wanted - width);
    return font;
}

class EntryPainter : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override {
        const QSize size = QStyledItemDelegate::sizeHint(option, index);
        return {size.width(), option.fontMetrics.height() + entrySpace};
    }

    // The selected entry of a list without the keys is but tinted.
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override {
        QStyledItemDelegate::initStyleOption(option, index);
        if (!option->widget || option->widget->hasFocus()) return;
        QPalette& palette = option->palette;
        const QColor ground = SelectedGround(palette, false);
        palette.setColor(QPalette::Highlight, ground);
        palette.setColor(QPalette::HighlightedText, Readable(palette.color(QPalette::Text), ground));
    }

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override {
        const QString entry = index.data().toString();
        const qsizetype tab = entry.indexOf(u'\t');
        if (tab < 0) return QStyledItemDelegate::paint(painter, option, index);
        // The ground of the entry without its text, then the text in its columns.
        QStyleOptionViewItem ground = option;
        initStyleOption(&ground, index);
        ground.text.clear();
        const QStyle& style = *option.widget->style();
        style.drawControl(QStyle::CE_ItemViewItem, &ground, painter, option.widget);
        const bool selected = option.state.testFlag(QStyle::State_Selected);
        const auto role = selected ? QPalette::HighlightedText : QPalette::Text;
        const bool enabled = option.state.testFlag(QStyle::State_Enabled);
        const QFontMetrics& metrics = option.fontMetrics;
        QRect place = option.rect.adjusted(4, 0, -2, 0);
        const auto draw = [&](const QString& text) {
            style.drawItemText(painter, place, Qt::AlignLeft | Qt::AlignVCenter, ground.palette, enabled,
                               metrics.elidedText(text, Qt::ElideRight, place.width()), role);
        };
        draw(entry.left(tab).trimmed());
        place.setLeft(place.left() + metrics.horizontalAdvance(QStringLiteral("M99R  ")));
        draw(entry.mid(tab + 1).trimmed());
    }
};

// Shows whole entries only.
class WholeEntries : public QListView {
public:
    using QListView::QListView;
    std::function<void()> OnRelease;
    std::function<void(int entries)> OnResize;

protected:
    void resizeEvent(QResizeEvent* event) override {
        const int entry = fontMetrics().height() + entrySpace;
        const int room = height() - 2 * frameWidth();
        setViewportMargins(0, 0, 0, room > entry ? room % entry : 0);
        QListView::resizeEvent(event);
        if (OnResize) OnResize(std::max(1, room / entry));
    }
    void mouseReleaseEvent(QMouseEvent* event) override {
        QListView::mouseReleaseEvent(event);
        OnRelease();
    }
};

}  // namespace

ListBoxView::ListBoxView(DesktopContext& desktop, ListBox& control, QWidget* parent)
    : View(desktop, control, new WholeEntries(parent)),
      list_(control),
      face_(static_cast<QListView*>(Widget())) {
    Watch(face_->viewport());
    face_->setModel(new EntriesModel(list_, face_));
    face_->setItemDelegate(new EntryPainter(face_));
    face_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    face_->setUniformItemSizes(true);
    face_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    // Only a whole click chooses: a mouse that is let go elsewhere leaves what was chosen before.
    static_cast<WholeEntries*>(face_)->OnRelease = [this] { Follow(PropertyId::ListIndex); };
    static_cast<WholeEntries*>(face_)->OnResize = [this](int entries) { list_.SetEntriesInSight(entries); };
    connect(face_, &QListView::clicked, this, [this](const QModelIndex& index) {
        list_.ListIndex = index.row();
        Click();
    });
    if (list_.FixedPitch) face_->setFont(FontOfHeads(desktop.Lengths));
}

void ListBoxView::Follow(PropertyId id) {
    switch (id) {
        case PropertyId::Entries: static_cast<EntriesModel*>(face_->model())->Changed(); [[fallthrough]];
        case PropertyId::ListIndex:
            // An index of no entry selects none.
            face_->setCurrentIndex(face_->model()->index(list_.ListIndex, 0));
            break;
        case PropertyId::ForeColor: SetTextColor(*face_, list_.ForeColor); break;
        default: View::Follow(id);
    }
}

void ListBoxView::Click() {
    Desktop.System.Run(list_, "Click", [this] { list_.Click(); });
}

}  // namespace kvt
