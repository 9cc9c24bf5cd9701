#include "platform/FilePicker.h"

#include <algorithm>

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>

namespace railwright {
namespace {

QString Native(const FilePath& path) {
    return QString::fromStdString(path.Native());
}

/// Converts filters to the form of QFileDialog, which shows the label and hides the masks in brackets.
QStringList NameFilters(const std::vector<FileFilter>& filters) {
    QStringList names;
    for (const auto& [label, masks] : filters)
        names += QString::fromStdString(label) + " (" + QString::fromStdString(masks).replace(';', ' ') + ')';
    return names;
}

/// Opens the dialog in the folder of the path, or else in the given folder. Puts the name into its field.
void StartAt(QFileDialog& dialog, const FilePath& path, const FilePath& folder) {
    const QFileInfo file(Native(path));
    if (!path.Folder().IsEmpty())
        dialog.setDirectory(file.absolutePath());
    else if (!folder.IsEmpty())
        dialog.setDirectory(Native(folder));
    if (!path.IsEmpty())
        dialog.selectFile(file.fileName());
}

} // namespace

std::optional<PickedFile> PickFile(const FileQuestion& question) {
    QFileDialog dialog(QWidget::find(static_cast<WId>(question.Owner)));
    // Applies the same rules about extensions and existing files on every desktop.
    dialog.setOption(QFileDialog::DontUseNativeDialog);
    dialog.setOption(QFileDialog::HideNameFilterDetails);
    dialog.setOption(QFileDialog::DontConfirmOverwrite, (question.Flags & OFN_OVERWRITEPROMPT) == 0);
    dialog.setWindowTitle(QString::fromStdString(question.Title));
    dialog.setAcceptMode(question.Purpose == FilePurpose::Open ? QFileDialog::AcceptOpen
                                                               : QFileDialog::AcceptSave);
    dialog.setFileMode((question.Flags & OFN_FILEMUSTEXIST) != 0 ? QFileDialog::ExistingFile
                                                                 : QFileDialog::AnyFile);
    dialog.setDefaultSuffix(QString::fromStdString(question.DefaultExtension));
    const QStringList filters = NameFilters(question.Filters);
    dialog.setNameFilters(filters);
    if (question.FilterIndex >= 1 && question.FilterIndex <= filters.size())
        dialog.selectNameFilter(filters[question.FilterIndex - 1]);
    StartAt(dialog, question.Path, question.Folder);

    if (dialog.exec() != QDialog::Accepted)
        return std::nullopt;
    const QString shown = dialog.selectedNameFilter();
    const auto used = std::find_if(filters.begin(), filters.end(),
                                   [&](const QString& filter) { return filter.startsWith(shown); });
    const auto index = static_cast<std::int32_t>(used - filters.begin()) + 1;
    return PickedFile{FilePath::FromUser(dialog.selectedFiles().value(0).toStdString()),
                      used == filters.end() ? question.FilterIndex : index};
}

} // namespace railwright
