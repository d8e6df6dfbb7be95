#include "app/PaymentKinds.h"

#include <iterator>

namespace {

constexpr PaymentKind kKinds[] = {
    {Text::CodeCash, Text::PaymentCash},
    {Text::CodeCreditCard, Text::PaymentCreditCard},
    {Text::CodeDebitCard, Text::PaymentDebitCard},
    {Text::CodeCompanyCard, Text::PaymentCompanyCard},
    {Text::CodeBankTransfer, Text::PaymentBankTransfer},
    {Text::CodeDirectDebit, Text::PaymentDirectDebit},
    {Text::CodeCheque, Text::PaymentCheque},
    {Text::CodeTravellersCheque, Text::PaymentTravellersCheque},
    {Text::CodeMoneyOrder, Text::PaymentMoneyOrder},
    {Text::CodePrepaidCard, Text::PaymentPrepaidCard},
    {Text::CodeGiftCard, Text::PaymentGiftCard},
    {Text::CodeVoucher, Text::PaymentVoucher},
    {Text::CodeMobilePayment, Text::PaymentMobilePayment},
    {Text::CodeOnlineWallet, Text::PaymentOnlineWallet},
    {Text::CodePettyCash, Text::PaymentPettyCash},
    {Text::CodeAdvance, Text::PaymentAdvance},
    {Text::CodeInvoice, Text::PaymentInvoice},
    {Text::CodeCreditNote, Text::PaymentCreditNote},
    {Text::CodeOther, Text::PaymentOther},
};
static_assert(std::size(kKinds) == 19);

}  // namespace

std::span<const PaymentKind> PaymentKinds() {
    return kKinds;
}
