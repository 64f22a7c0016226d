// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
//
// The standard input of a batch: each line, whatever it holds, gets one answer that is JSON.
#include "cli/batch.h"

#include "lines.h"
#include "targets.h"

#include <QBuffer>
#include <QJsonDocument>
#include <QJsonObject>

namespace soran::fuzz {

void batch(QByteArrayView input) {
  const InputFile file(input);
  LineInput lines(file.descriptor());
  QBuffer output;
  output.open(QIODevice::ReadWrite);
  runBatch(lines, output);

  QList<QByteArray> answers = output.data().split('\n');
  require(answers.takeLast().isEmpty(), "the last answer is ended");
  const QList<QByteArray> jobs = linesOf(input);
  require(answers.size() == jobs.size(), "each line gets one answer");
  for (qsizetype i = 0; i < jobs.size(); ++i) {
    const QJsonDocument document = QJsonDocument::fromJson(answers[i]);
    require(document.isObject(), "an answer is a JSON object");
    const QJsonObject answer = document.object();
    require(answer.contains(u"result") != answer.contains(u"error"), "an answer is a result or an error");
    const QJsonObject job = QJsonDocument::fromJson(jobs[i]).object();
    require(answer.contains(u"id") == job.contains(u"id") &&
                answer.size() == 1 + qsizetype(job.contains(u"id")),
            "an answer has the id of its job, where there is one");
    require(answerJob(jobs[i]) == answers[i] + '\n', "the same job is answered the same way");
  }
}

} // namespace soran::fuzz
