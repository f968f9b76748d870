#include "tests/support/ScriptedFiles.h"

#include <gtest/gtest.h>

ScriptedFiles::~ScriptedFiles() {
    EXPECT_TRUE(answers.empty()) << "a file was not asked for";
}

QString ScriptedFiles::Answer(Kind kind, const Request& request) {
    asked.push_back({kind, request});
    if (answers.empty()) {
        ADD_FAILURE() << "a file was asked for: " << request.title.toStdString();
        return {};
    }
    const QString answer = answers.front();
    answers.erase(answers.begin());
    return answer;
}
