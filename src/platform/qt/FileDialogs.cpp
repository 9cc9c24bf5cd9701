#include "platform/FileDialogs.h"

#include "platform/Paths.h"

#include <algorithm>

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>

namespace railwright {
namespace {

QString Outside(const std::string& path) {
    return QString::fromStdString(PathForOutside(path));
}

std::string UpToNul(const std::string& buffer) {
    return buffer.substr(0, buffer.find('\0'));
}

/// The pieces of a filter in the platform's form, labels and patterns by turns.
QStringList PiecesOf(const std::string& filter) {
    QStringList pieces;
    for (std::size_t at = 0; at < filter.size() && filter[at] != '\0';) {
        const std::string piece = UpToNul(filter.substr(at));
        pieces += QString::fromStdString(piece);
        at += piece.size() + 1;
    }
    return pieces;
}

/// The filters in the form of QFileDialog, which shows a label and hides the masks in the brackets behind it.
QStringList NameFilters(const std::string& filter) {
    const QStringList pieces = PiecesOf(filter);
    QStringList filters;
    for (qsizetype at = 0; at + 1 < pieces.size(); at += 2)
        filters += pieces[at] + " (" + QString(pieces[at + 1]).replace(';', ' ') + ')';
    return filters;
}

/// Puts a string into a buffer of `size` characters, NULs behind it.
/// @return whether there was room for it and one NUL.
bool Fill(std::string& buffer, const QString& content, std::size_t size) {
    const auto length = static_cast<std::size_t>(content.toUcs4().size());
    if (length >= size)
        return false;
    buffer = content.toStdString() + std::string(size - length, '\0');
    return true;
}

/// Opens the dialog in the folder of the name if it has one, else in the folder asked for, and puts the name
/// into its field.
void StartAt(QFileDialog& dialog, const std::string& name, const std::string& folder) {
    const bool hasFolder = name.find('\\') != std::string::npos;
    const QFileInfo file(Outside(name));
    if (hasFolder)
        dialog.setDirectory(file.absolutePath());
    else if (!folder.empty())
        dialog.setDirectory(Outside(folder));
    if (!name.empty())
        dialog.selectFile(file.fileName());
}

std::int32_t Run(OpenFileName& record, QFileDialog::AcceptMode mode) {
    QFileDialog dialog(QWidget::find(static_cast<WId>(record.hwndOwner)));
    // One dialog for every surrounding, with the same rules about extensions and existing files.
    dialog.setOption(QFileDialog::DontUseNativeDialog);
    dialog.setOption(QFileDialog::HideNameFilterDetails);
    dialog.setOption(QFileDialog::DontConfirmOverwrite, (record.Flags & OFN_OVERWRITEPROMPT) == 0);
    dialog.setWindowTitle(QString::fromStdString(record.lpstrTitle));
    dialog.setAcceptMode(mode);
    dialog.setFileMode((record.Flags & OFN_FILEMUSTEXIST) != 0 ? QFileDialog::ExistingFile
                                                               : QFileDialog::AnyFile);
    dialog.setDefaultSuffix(QString::fromStdString(record.lpstrDefExt));
    const QStringList filters = NameFilters(record.lpstrFilter);
    dialog.setNameFilters(filters);
    if (record.nFilterIndex >= 1 && record.nFilterIndex <= filters.size())
        dialog.selectNameFilter(filters[record.nFilterIndex - 1]);
    StartAt(dialog, UpToNul(record.lpstrFile), record.lpstrInitialDir);

    if (dialog.exec() != QDialog::Accepted)
        return 0;
    const QString chosen = dialog.selectedFiles().value(0);
    OpenFileName answer = record;
    if (!Fill(answer.lpstrFile, QString::fromStdString(PathFromOutside(chosen.toStdString())),
              record.nMaxFile) ||
        !Fill(answer.lpstrFileTitle, QFileInfo(chosen).fileName(), record.nMaxFileTitle))
        return 0;
    const QString shown = dialog.selectedNameFilter();
    const auto used = std::find_if(filters.begin(), filters.end(),
                                   [&](const QString& filter) { return filter.startsWith(shown); });
    if (used != filters.end())
        answer.nFilterIndex = static_cast<std::int32_t>(used - filters.begin()) + 1;
    record = answer;
    return 1;
}

} // namespace

std::int32_t GetOpenFileName(OpenFileName& dialog) {
    return Run(dialog, QFileDialog::AcceptOpen);
}

std::int32_t GetSaveFileName(OpenFileName& dialog) {
    return Run(dialog, QFileDialog::AcceptSave);
}

} // namespace railwright
