#pragma once

#include "tests/windows/support/RegisterFixture.h"

/// The products register, and what it and its issues hold.
class ProductFixture : public RegisterTest<Command::ID_SHOW_PRODUCTS> {
protected:
    std::string ProductNames() const { return Names(List("products"), 1); }

    /// What the issues carry: line, cover and ten-thousandths. Rows entered by hand are there until it is computed.
    std::string Issued() const {
        return folder.AskAll("SELECT mvprod_id, cover_id, mvcover_qty FROM Move_Cover ORDER BY 1, 2, 3");
    }
    static constexpr const char* ByHand = "1|3|770000 3|3|770000";
    static constexpr const char* Computed = "1|1|500000 1|2|20000 2|1|100000 2|2|0 3|3|770000";
    void ExpectIssued(const char* rows, std::size_t told) {
        EXPECT_EQ(rows, Issued());
        ExpectTold(told);
    }
    void PackIssuesByHand() const {
        folder.Sql("DELETE FROM Move_Cover; INSERT INTO Move_Cover (mvprod_id, cover_id, mvcover_qty) VALUES "
                   "(1, 3, 770000), (3, 3, 770000)");
    }

    std::string StoredDates() const {
        return folder.AskAll("SELECT dt_id, prod_id, replace(dt_from, ' ', '_') FROM Prod_CoverDT ORDER BY dt_id");
    }
    /// Only those that were added, unless told otherwise.
    std::string StoredPackaging(const char* condition = "cp_id > 3") const {
        return folder.AskAll((std::string("SELECT dt_id, cover_id, cp_qtycover, cp_qtyprod, cp_usealways, cp_usefrom, "
                                          "cp_useto, cover_type, cover_org, cover_pay FROM Prod_Cover WHERE ") +
                              condition + " ORDER BY cp_id")
                                 .c_str());
    }
};
