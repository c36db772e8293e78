#include "platform/file_dialog.h"

#include <QAbstractFileIconProvider>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QHeaderView>
#include <QLineEdit>
#include <QSplitter>
#include <QTreeView>
#include <QUrl>
#include <algorithm>
#include <string_view>
#include <utility>

#include "base/files.h"
#include "platform/application.h"
#include "platform/native.h"
#include "platform/signs.h"

namespace platform {

namespace {

FileDialogResponder responder;

QString Glyphs(const std::string& text) { return ToGlyphs(text, Application::default_charset()); }

/// The text in front of the first character of code 0, which is taken off with it.
std::string TakePart(std::string_view& text) {
  const std::size_t end = std::min(text.find('\0'), text.size());
  std::string part(text.substr(0, end));
  text.remove_prefix(std::min(end + 1, text.size()));
  return part;
}

/// The filter in Qt's form: "shown text (patterns)".
QStringList NameFilters(std::string_view filter) {
  QStringList filters;
  while (!filter.empty()) {
    const QString shown = Glyphs(TakePart(filter));
    const QString patterns = Glyphs(TakePart(filter)).replace(u';', u' ');
    if (!patterns.isEmpty()) filters << shown + " (" + patterns + ")";
  }
  return filters;
}

/// ".zb" of "*.zb" or "zb"; empty for none.
QString Ending(const std::string& extension) {
  const QString text = Glyphs(extension);
  const QString bare = text.mid(text.lastIndexOf(u'.') + 1);
  return bare.isEmpty() ? QString() : "." + bare;
}

/// Folders and files as the style draws them, not as the desktop's icon theme does.
class Icons : public QAbstractFileIconProvider {
 public:
  QIcon icon(IconType type) const override { return SignOf(type == File ? QStyle::SP_FileIcon : QStyle::SP_DirIcon); }
  QIcon icon(const QFileInfo& file) const override { return icon(file.isDir() ? Folder : File); }
};

/// Qt's own dialog, which looks like the program's other windows.
class Dialog : public QFileDialog {
 public:
  Dialog(const FileDialog& dialog, AcceptMode mode)
      : QFileDialog(FrontWindow()), ending_(Ending(dialog.default_extension)) {
    const std::string folder = FindPath(dialog.folder);
    setOption(DontUseNativeDialog);
    setOption(HideNameFilterDetails);
    setOption(DontConfirmOverwrite, !(dialog.flags & kOverwritePrompt));
    setWindowTitle(Glyphs(dialog.title));
    setAcceptMode(mode);
    setFileMode(mode == AcceptOpen && (dialog.flags & kFileMustExist) ? ExistingFile : AnyFile);
    setNameFilters(NameFilters(dialog.filter));
    setDirectory(folder.empty() ? QDir::homePath() : QString::fromStdString(folder));
    setSidebarUrls({QUrl::fromLocalFile(directory().path()), QUrl::fromLocalFile(QDir::homePath())});
    setIconProvider(&icons_);
    if (!dialog.name.empty()) selectFile(QString::fromStdString(dialog.name));
    setWindowModality(Qt::ApplicationModal);
    ShowDetails();
    resize(780, 460);
    if (auto* halves = findChild<QSplitter*>("splitter")) halves->setSizes({150, width() - 150});
  }

  std::string Run() {
    if (exec() != Accepted || selectedFiles().isEmpty()) return {};
    return selectedFiles().first().toStdString();
  }

  void accept() override {
    if (acceptMode() == AcceptSave) CompleteName();
    QFileDialog::accept();
  }

 private:
  /// Names get the room, the kind of file says nothing.
  void ShowDetails() {
    setViewMode(Detail);
    constexpr int kNameColumn = 0;
    constexpr int kKindColumn = 2;
    if (auto* rows = findChild<QTreeView*>("treeView")) {
      rows->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
      rows->header()->setSectionResizeMode(kNameColumn, QHeaderView::Stretch);
      rows->hideColumn(kKindColumn);
    }
  }

  /// Before Qt asks whether an existing file is to be replaced.
  void CompleteName() {
    auto* name = findChild<QLineEdit*>("fileNameEdit");
    const QStringList files = selectedFiles();
    if (!name || files.size() != 1 || QFileInfo(files.first()).isDir()) return;
    if (!files.first().endsWith(ending_, Qt::CaseInsensitive)) name->setText(name->text() + ending_);
  }

  Icons icons_;
  QString ending_;
};

std::string Show(const FileDialog& dialog, QFileDialog::AcceptMode mode) {
  return responder ? responder(dialog) : Dialog(dialog, mode).Run();
}

}  // namespace

inline namespace CommonDialogy {

std::string ShowOpenDialog(const FileDialog& dialog) { return Show(dialog, QFileDialog::AcceptOpen); }
std::string ShowSaveDialog(const FileDialog& dialog) { return Show(dialog, QFileDialog::AcceptSave); }

void SetFileDialogResponder(FileDialogResponder new_responder) { responder = std::move(new_responder); }

}  // namespace CommonDialogy

}  // namespace platform
