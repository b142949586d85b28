// SPDX-License-Identifier: MIT
#include "frmAbout.h"

#include "FormDesign.h"

namespace dialogs {

frmAbout::frmAbout()
{
    form.design = {.sCaption = "About", .ClientWidth = 4050, .ClientHeight = 1980};
    form.controls = {&Label1, &btnOK, &Image1};
    form.Load = [this] { Form_Load(); };
    btnOK.Click = [this] { btnOK_Click(); };
    Design(Label1, {945, 210, 2850, 1065}, "");
    Design(btnOK, {1470, 1470, 1095, 330}, "OK");
    Design(Image1, 210, 210, "tallyfen");
}

void frmAbout::Form_Load()
{
    Label1.SetCaption("Corvane Tallyfen\r\n"
                      "\r\n"
                      "Author: The Tallyfen developers\r\n"
                      "Homepage: www.tallyfen.example\r\n"
                      "E-mail: mail@tallyfen.example");
}

frmAbout& theAboutForm()
{
    static frmAbout form;
    return form;
}

} // namespace dialogs
