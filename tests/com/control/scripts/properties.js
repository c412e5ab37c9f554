// The same object for a language without by-reference arguments.
var view = new ActiveXObject("VellaneInet2.ImageView");
Host.Check(view.FetchDelay === 300, "a number's default");
Host.Check(view.Enabled === true, "Booleans");
view.PrintCaption = "Caption";
Host.Check(view.PrintCaption === "Caption", "text");
view.FetchDelay = 12.5;
Host.Check(view.FetchDelay === 12, "halves go to the even number");
view.DfPrintPaperSize = 9;
Host.Check(view.DfPrintPaperSize === 9, "an enumeration's value");
var refused = 0;
try {
    view.BorderStyle = 2;
} catch (error) {
    refused = error.number & 0xFFFF;
}
Host.Check(refused === 380, "a refused value: " + refused);
Host.Check(view.BorderStyle === 0, "and the old one stays");
