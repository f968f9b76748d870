#pragma once

#include "registers/RecordList.h"
#include "registers/ViewCover.h"
#include "rules/Propagation.h"
#include "tests/gui/Driver.h"

#include <gtest/gtest.h>

inline constexpr const char* AllCovers =
    "SELECT cover_id, cover_name, cover_mat, cover_weight, cover_type, cover_org, cover_pay, cover_reusable, "
    "cover_stat, cover_note, deleted FROM Cover ORDER BY cover_id";
inline constexpr const char* AllDiscards =
    "SELECT disc_id, cover_id, replace(disc_date, ' ', '_'), disc_qty, disc_type FROM CoverDiscard ORDER BY disc_id";

/// The covers register on three covers, the first of them with two discards.
class CoverFixture : public testing::Test {
protected:
    CoverFixture() {
        g_options = {};
        folder.Sql("INSERT INTO Cover (cover_name, cover_mat, cover_weight, cover_type, cover_org, cover_pay, "
                   "cover_reusable, cover_stat, cover_note) VALUES "
                   "('Bedna', 0, 20000, 1, 1, 1, 1, 0, ''), ('Fólie', 3, 2500, 2, 0, 1, 0, 0, 'tenká'), "
                   "('PE folie 20 µm', 3, 300, 2, 0, 2, 0, 0, '')");
        folder.Sql("INSERT INTO CoverDiscard (cover_id, disc_date, disc_qty, disc_type) VALUES "
                   "(1, '2012-05-02 00:00:00', 30000, 0), (1, '2012-03-01 00:00:00', 10000, 2)");
        view.resize(900, 400);
        view.InitialUpdate();
        view.show();
    }

    RecordList& Covers() { return Find<RecordList>(view, "covers"); }
    RecordList& Discards() { return Find<RecordList>(view, "discards"); }

    StoreFolder folder;
    ScriptedMessages messages;
    RecordedFrame frame;
    CViewCover view{folder.store, frame};
    Steps steps;
};
