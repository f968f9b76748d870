#pragma once

#include "core/rules/records/CoverTerms.h"
#include "core/store/DataStore.h"
#include "windows/widgets/edits/CodeCombo.h"

// The lists of a form that has them as `type`, `origin` and `payment`.

template <class Form>
void FillTerms(Form& form, const CDataStore& store) {
    FillCodes(*form.type, store.Codes(CodeList::CoverType));
    FillCodes(*form.origin, store.Codes(CodeList::CoverOrigin));
    FillCodes(*form.payment, store.Codes(CodeList::CoverPayment));
}

template <class Form>
void ShowTerms(Form& form, const CoverTerms& terms) {
    SelectCode(*form.type, terms.type);
    SelectCode(*form.origin, terms.origin);
    SelectCode(*form.payment, terms.payment);
}

template <class Form>
CoverTerms ChosenTerms(const Form& form) {
    return {ChosenCode(*form.type), ChosenCode(*form.origin), ChosenCode(*form.payment)};
}
