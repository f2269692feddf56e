#include <QKeyEvent>
#include <QListWidget>
#include <QMouseEvent>
#include <QScrollBar>
#include <algorithm>
#include <optional>
#include <utility>

#include "toolkit/forms.h"
#include "toolkit/handlers.h"
#include "toolkit/native_window.h"

namespace toolkit {

namespace {

constexpr int kItemData = Qt::UserRole;
/// The text as given; what is shown has blanks for control characters, which would break the row.
constexpr int kGivenText = Qt::UserRole + 1;

/// Runs the handlers only after the toolkit has handled the event: they may clear or drop the list.
class ListWidget : public QListWidget {
 public:
  ListWidget(QWidget* container, unsigned style)
      : QListWidget(container),
        checked((style & kCheckedList) != 0),
        sorted((style & kSortedList) != 0) {
    setUniformItemSizes(true);
    setSelectionMode(SingleSelection);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setEditTriggers(NoEditTriggers);
    connect(this, &QListWidget::itemChanged, this, [this](QListWidgetItem* changed) {
      if (user_acts_) {
        toggled_ = row(changed);
      }
    });
  }

  int Picked() const {
    const QModelIndexList rows = selectionModel()->selectedRows();
    return rows.isEmpty() ? -1 : rows.front().row();
  }

  const bool checked;
  const bool sorted;

 protected:
  void mousePressEvent(QMouseEvent* event) override {
    pressed_row_ =
        event->button() == Qt::LeftButton ? indexAt(event->position().toPoint()).row() : -1;
    before_press_ = Picked();
    if (pressed_row_ >= 0) {
      QListWidget::mousePressEvent(event);
      // A press on the row's box alone would leave the row unpicked.
      setCurrentIndex(indexAt(event->position().toPoint()));
    }
  }

  void mouseDoubleClickEvent(QMouseEvent* event) override { mousePressEvent(event); }

  void mouseReleaseEvent(QMouseEvent* event) override {
    if (event->button() != Qt::LeftButton || pressed_row_ < 0) {
      return;
    }
    const int pressed_row = std::exchange(pressed_row_, -1);
    const int row_below = indexAt(event->position().toPoint()).row();
    user_acts_ = true;
    QListWidget::mouseReleaseEvent(event);
    if (checked && !toggled_ && row_below == pressed_row) {
      Toggle(*item(pressed_row));
    }
    user_acts_ = false;
    Tell(row_below >= 0 || Picked() != before_press_);
  }

  void keyPressEvent(QKeyEvent* event) override {
    const int before = Picked();
    user_acts_ = true;
    QListWidget::keyPressEvent(event);
    user_acts_ = false;
    Tell(Picked() != before);
  }

  /// A row that is picked stays so when it is picked again.
  QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex& index,
                                                       const QEvent* event) const override {
    const auto flags = QListWidget::selectionCommand(index, event);
    return flags.testFlag(QItemSelectionModel::Deselect) ||
                   flags.testFlag(QItemSelectionModel::Toggle)
               ? QItemSelectionModel::ClearAndSelect
               : flags;
  }

 private:
  /// For clicks on the rest of the row: the toolkit itself serves those on the box.
  static void Toggle(QListWidgetItem& row_item) {
    row_item.setCheckState(row_item.checkState() == Qt::Checked ? Qt::Unchecked : Qt::Checked);
  }

  void Tell(bool picked) {
    const std::optional<int> toggled = std::exchange(toggled_, std::nullopt);
    NativeWindow* window = NativeOf(this);
    if (window == nullptr) {
      return;
    }
    auto& list = *static_cast<ListBox*>(window->control);
    const std::weak_ptr<char> alive = window->alive;
    if (toggled) {
      Call(list.ItemCheck, *toggled);
    }
    if (picked && !alive.expired()) {
      Call(list.Click);
    }
  }

  bool user_acts_ = false;
  int pressed_row_ = -1;  ///< where the left button went down
  int before_press_ = -1;
  std::optional<int> toggled_;
};

ListWidget& Of(NativeWindow& window) { return *static_cast<ListWidget*>(window.widget.data()); }

QString Shown(QString text) {
  for (QChar& c : text) {
    if (c.category() == QChar::Other_Control || c == QChar::LineSeparator ||
        c == QChar::ParagraphSeparator) {
      c = QLatin1Char(' ');
    }
  }
  return text;
}

/// Behind every row whose text is not greater.
int SortedPlace(const ListWidget& list, const QString& text) {
  int low = 0;
  int high = list.count();
  while (low < high) {
    const int middle = (low + high) / 2;
    const QString at = list.item(middle)->data(kGivenText).toString();
    if (QString::compare(at, text, Qt::CaseInsensitive) <= 0) {
      low = middle + 1;
    } else {
      high = middle;
    }
  }
  return low;
}

void SetColor(NativeWindow& window, QPalette::ColorRole role, platform::ColorRef color) {
  QPalette palette = window.widget->palette();
  palette.setColor(role, ToColor(color));
  window.widget->setPalette(palette);
}

}  // namespace

ListBox::ListBox(Container& container, std::string_view name, unsigned style)
    : Control(WindowOwner(new NativeWindow(new ListWidget(container.hWnd()->widget, style),
                                           container.hWnd(), name))) {
  ListBox::SetBackColor(platform::RGB(255, 255, 255));
  SetForeColor(platform::RGB(0, 0, 0));
}

void ListBox::Clear() { Of(Native()).clear(); }

int ListBox::AddItem(std::string_view text, std::int32_t item_data) {
  ListWidget& list = Of(Native());
  const QString given = QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
  auto* item = new QListWidgetItem(Shown(given));
  item->setData(kGivenText, given);
  item->setData(kItemData, item_data);
  if (list.checked) {
    item->setCheckState(Qt::Unchecked);
  }
  const int row = list.sorted ? SortedPlace(list, given) : list.count();
  list.insertItem(row, item);
  return row;
}

int ListBox::ListCount() const { return Of(Native()).count(); }

std::string ListBox::List(int row) const {
  const QListWidgetItem* item = Of(Native()).item(row);
  return item != nullptr ? item->data(kGivenText).toString().toStdString() : std::string();
}

std::int32_t ListBox::ItemData(int row) const {
  const QListWidgetItem* item = Of(Native()).item(row);
  return item != nullptr ? item->data(kItemData).toInt() : 0;
}

int ListBox::ListIndex() const { return Of(Native()).Picked(); }

void ListBox::SetListIndex(int row) {
  ListWidget& list = Of(Native());
  if (row >= -1 && row < list.count()) {
    list.setCurrentRow(row, QItemSelectionModel::ClearAndSelect);
  }
}

int ListBox::TopIndex() const {
  const ListWidget& list = Of(Native());
  return list.count() == 0 ? -1 : std::max(0, list.indexAt({1, 1}).row());
}

void ListBox::SetTopIndex(int row) {
  ListWidget& list = Of(Native());
  if (const QListWidgetItem* item = list.item(row); item != nullptr) {
    list.scrollToItem(item, QAbstractItemView::PositionAtTop);
  }
}

bool ListBox::Selected(int row) const {
  const ListWidget& list = Of(Native());
  const QListWidgetItem* item = list.item(row);
  return item != nullptr && (list.checked ? item->checkState() == Qt::Checked : item->isSelected());
}

void ListBox::SetSelected(int row, bool selected) {
  ListWidget& list = Of(Native());
  QListWidgetItem* item = list.item(row);
  if (item != nullptr && list.checked) {
    item->setCheckState(selected ? Qt::Checked : Qt::Unchecked);
  } else if (item != nullptr && item->isSelected() != selected) {
    SetListIndex(selected ? row : -1);
  }
}

void ListBox::SetForeColor(platform::ColorRef color) {
  Native().fore_color = color;
  SetColor(Native(), QPalette::Text, color);
}

void ListBox::SetBackColor(platform::ColorRef color) {
  Native().back_color = color;
  SetColor(Native(), QPalette::Base, color);
}

}  // namespace toolkit
