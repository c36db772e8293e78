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

/// ".zb" of "*.zb" or "zb", or of the filter's first pattern; empty for none.
QString Ending(const FileDialog& dialog) {
  std::string_view filter = dialog.filter;
  TakePart(filter);
  const QString text = Glyphs(dialog.default_extension.empty() ? TakePart(filter) : dialog.default_extension);
  const QString bare = text.mid(text.lastIndexOf(u'.') + 1);
  return bare.isEmpty() ? QString() : "." + bare;
}

/// What belongs to the user: the own folder of the dialog, if there is one, and home.
QStringList OwnFolders(const FileDialog& dialog) {
  QStringList folders;
  const std::string own = FindPath(dialog.own_folder);
  if (!own.empty()) folders << QDir(QString::fromStdString(own)).absolutePath();
  return folders << QDir::homePath();
}

QList<QUrl> ToUrls(QStringList folders) {
  folders.removeDuplicates();
  QList<QUrl> urls;
  for (const QString& folder : folders) urls << QUrl::fromLocalFile(folder);
  return urls;
}

/// Folders and files as the style draws them, not as the desktop's icon theme does. The user's own folders are marked:
/// they may be called as those that come with the program.
class Icons : public QAbstractFileIconProvider {
 public:
  explicit Icons(QStringList own_folders) : own_folders_(std::move(own_folders)) {}

  QIcon icon(IconType type) const override { return SignOf(type == File ? QStyle::SP_FileIcon : QStyle::SP_DirIcon); }
  QIcon icon(const QFileInfo& file) const override {
    if (own_folders_.contains(file.absoluteFilePath())) return SignOf(QStyle::SP_DirHomeIcon);
    return icon(file.isDir() ? Folder : File);
  }

 private:
  QStringList own_folders_;
};

/// Qt's own dialog, which looks like the program's other windows.
class Dialog : public QFileDialog {
 public:
  Dialog(const FileDialog& dialog, AcceptMode mode)
      : QFileDialog(FrontWindow()), own_folders_(OwnFolders(dialog)), icons_(own_folders_), ending_(Ending(dialog)) {
    const std::string folder = FindPath(dialog.folder);
    setOption(DontUseNativeDialog);
    setOption(HideNameFilterDetails);
    setOption(DontConfirmOverwrite, !(dialog.flags & kOverwritePrompt));
    setWindowTitle(Glyphs(dialog.title));
    setAcceptMode(mode);
    setFileMode(mode == AcceptOpen && (dialog.flags & kFileMustExist) ? ExistingFile : AnyFile);
    setNameFilters(NameFilters(dialog.filter));
    setDirectory(folder.empty() ? QDir::homePath() : QString::fromStdString(folder));
    setSidebarUrls(ToUrls(QStringList{directory().absolutePath()} + own_folders_));
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
    CompleteName();
    QFileDialog::accept();
  }

 private:
  /// Names get the room; the kind of file and its size say nothing.
  void ShowDetails() {
    setViewMode(Detail);
    constexpr int kNameColumn = 0;
    constexpr int kSizeColumn = 1;
    constexpr int kKindColumn = 2;
    if (auto* rows = findChild<QTreeView*>("treeView")) {
      rows->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
      rows->header()->setSectionResizeMode(kNameColumn, QHeaderView::Stretch);
      for (const int column : {kSizeColumn, kKindColumn}) rows->hideColumn(column);
    }
  }

  /// Before Qt looks whether there is such a file. One to open may be called as it was typed.
  void CompleteName() {
    auto* name = findChild<QLineEdit*>("fileNameEdit");
    const QStringList files = selectedFiles();
    if (!name || files.size() != 1 || QFileInfo(files.first()).isDir()) return;
    if (acceptMode() == AcceptOpen && QFileInfo::exists(files.first())) return;
    if (!files.first().endsWith(ending_, Qt::CaseInsensitive)) name->setText(name->text() + ending_);
  }

  QStringList own_folders_;
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
