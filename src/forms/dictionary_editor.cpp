// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "forms/dictionary_editor.h"

#include "base/text.h"
#include "forms/picture_file.h"

namespace soran {

using namespace Qt::StringLiterals;

namespace {

QString normalKey(QStringView key) {
  return asciiUpper(trimBlanks(key));
}

std::vector<EditedRow> rowsOf(Tables& tables, DictionaryMode mode) {
  std::vector<EditedRow> rows;
  if (mode == DictionaryMode::Pictures) {
    for (int i = 0; i < tables.pictures().recordCount(); ++i)
      rows.emplace_back(tables.pictures().valueAt(i, u"名称").toString(), QString());
    return rows;
  }
  for (const DictionaryEntry& entry :
       mode == DictionaryMode::Phrases ? tables.phraseRows() : tables.abbreviationRows())
    rows.emplace_back(entry.abbreviation, entry.meaning);
  return rows;
}

} // namespace

DictionaryEditor::DictionaryEditor(Program& program, DictionaryMode mode)
    : program_(program), mode_(mode), list_(rowsOf(program.tables, mode)) {
  program.watchTicks = 0;
  showPictureOfRow();
}

QString DictionaryEditor::title() const {
  switch (mode_) {
  case DictionaryMode::Phrases:
    return u" 日本語解析"_s;
  case DictionaryMode::Pictures:
    return u" 画像登録"_s;
  case DictionaryMode::Abbreviations:
    break;
  }
  return u" 天気略語"_s;
}

QString DictionaryEditor::keyHeading() const {
  return registersPictures() ? u"名称"_s : u"略語"_s;
}

QString DictionaryEditor::meaningHeading() const {
  return registersPictures() ? QString() : u"意味"_s;
}

void DictionaryEditor::select(int row, int column) {
  if (!list_.has(row))
    return;
  list_.select(row);
  column_ = registersPictures() ? 0 : std::clamp(column, 0, 1);
  editing_ = false;
  showPictureOfRow();
  changed();
}

void DictionaryEditor::showPictureOfRow() {
  if (registersPictures() && list_.hasSelection())
    picture_ = program_.tables.picture(list_.current().first);
}

QString* DictionaryEditor::currentCell() {
  return column_ == 0 ? &list_.current().first : &list_.current().second;
}

QString DictionaryEditor::cellText() const {
  if (!list_.hasSelection())
    return {};
  return column_ == 0 ? list_.current().first : list_.current().second;
}

QString DictionaryEditor::held(const QString& typed) const {
  return column_ == 0 ? asciiUpper(typed) : typed;
}

void DictionaryEditor::edit() {
  editing_ = canEdit();
  changed();
}

void DictionaryEditor::addRow() {
  if (!canAdd())
    return;
  list_.insert(list_.count(), {});
  list_.select(list_.count() - 1);
  list_.holdMoves();
  column_ = 0;
  dirty_ = true;
  edit();
}

void DictionaryEditor::remove() {
  if (!canRemove() || !confirmedDeletion(program_, list_.current().first))
    return;
  editing_ = false;
  dirty_ = true;
  list_.removeCurrent();
  changed();
}

void DictionaryEditor::moveUp() {
  if (!canMoveUp())
    return;
  list_.moveUp();
  dirty_ = true;
  changed();
}

void DictionaryEditor::moveDown() {
  if (!canMoveDown())
    return;
  list_.moveDown();
  dirty_ = true;
  changed();
}

bool DictionaryEditor::isTaken(const QString& key) const {
  for (int row = 0; row < list_.count(); ++row) {
    if (row != list_.selected() && normalKey(list_.at(row).first) == normalKey(key))
      return true;
  }
  return false;
}

bool DictionaryEditor::commit(const QString& text) {
  if (!editing_)
    return false;
  const QString entered = held(text);
  if (column_ == 0 && isTaken(entered)) {
    tell(program_, entered + u" はすでに登録されています　　");
    return false;
  }
  *currentCell() = entered;
  editing_ = false;
  dirty_ = true;
  changed();
  return true;
}

void DictionaryEditor::abandon() {
  editing_ = false;
  changed();
}

void DictionaryEditor::refusePicture() {
  tell(program_, u"画像ファイル（PNG、JPEG、GIF、BMP、8 MB まで）を指定してください　　"_s);
}

void DictionaryEditor::registerPictureFile(const QString& path) {
  if (!registersPictures())
    return;
  if (const std::optional<QByteArray> bytes = readPicture(path))
    registerPicture(*bytes);
  else
    refusePicture();
}

void DictionaryEditor::registerPicture(const QByteArray& bytes) {
  if (!registersPictures() || !list_.hasSelection())
    return;
  if (!isPicture(bytes) || !decodes(bytes)) {
    refusePicture();
    return;
  }
  picture_ = bytes;
  changed();
  const QString name = list_.current().first;
  if (confirmed(program_, u"写真を登録しますか？　　"_s))
    writeBack(program_, [&] { storePicture(name); });
}

void DictionaryEditor::storePicture(const QString& name) {
  RowSet& pictures = program_.tables.pictures();
  for (pictures.moveFirst(); !pictures.eof(); pictures.moveNext()) {
    if (pictures.text(u"名称") != name)
      continue;
    pictures.appendChunk(u"データ", picture_);
    pictures.update();
    return;
  }
}

void DictionaryEditor::close() {
  if (registersPictures() || !std::exchange(dirty_, false))
    return;
  // A row that was added and never filled is none.
  std::vector<EditedRow> rows = list_.rows();
  std::erase_if(rows, [](const EditedRow& row) { return row.first.isEmpty() && row.second.isEmpty(); });
  const QStringView name = mode_ == DictionaryMode::Phrases ? table::日本語解析 : table::気象略語;
  writeBack(program_, [&] { storeDictionary(program_.tables, name, rows); });
}

} // namespace soran
