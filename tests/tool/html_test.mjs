// The page of smbios-tree --html in a browser.
//
//   node html_test.mjs SMBIOS-TREE SAMPLE SCREENSHOT
//
// Needs the package playwright-core and a Chromium; CHROMIUM names one that is not at /usr/bin/chromium.

import assert from "node:assert/strict";
import { execFileSync } from "node:child_process";
import { mkdtempSync, readFileSync, rmSync, writeFileSync } from "node:fs";
import { tmpdir } from "node:os";
import { join } from "node:path";
import { pathToFileURL } from "node:url";
import { chromium } from "playwright-core";

const [tool, sample, screenshot] = process.argv.slice(2);
const markup = "</script></style><img src=x onerror=\"window.broken=1\">'&lt;";

// A memory device in front of the sample's table, its locator a text that reads like markup.
const device = [17, 28, 0xf0, 0xf0, 0, 0, 0xfe, 0xff, 64, 0, 64, 0, 0, 4, 9, 0, 1, 0, 0x18, 0x80, 0, 0, 4, 0, 0, 0, 0, 0];
const hostile = Buffer.concat([Buffer.from(device), Buffer.from(markup + "\0\0", "latin1"), readFileSync(sample)]);

const tests = {
    async "folds"(page) {
        const vendor = page.locator('[data-k="/Type0"] [data-k="/BIOSVendor"] span');
        assert.equal(await vendor.isVisible(), false);
        await page.click('[data-k="/Type0"] > summary');
        assert.equal(await vendor.isVisible(), true);
        await page.click('[data-k="/Type0"] > summary');
        assert.equal(await vendor.isVisible(), false);
        await page.click('text="Unfold all"');
        assert.equal(await page.locator(".tree details:not([open])").count(), 0);
        await page.click('text="Fold all"');
        assert.equal(await page.locator(".tree details[open]").count(), 1);
    },

    async "finds, and forgets what it found"(page) {
        await page.keyboard.press("/");
        await page.keyboard.type("type17[2] locator");
        await page.waitForFunction(() => document.querySelector("output").textContent === "2 found");
        const visible = await page.locator(".tree p:visible b").allTextContents();
        assert.deepEqual(visible, ["DeviceLocator", "BankLocator"]);
        await page.hover(".tree p:visible");
        assert.equal(await page.textContent(".bar code"), "/SMBIOS/Type17[2]/DeviceLocator");
        await page.fill("input", "no such text");
        await page.waitForFunction(() => document.querySelector("output").textContent === "nothing found");
        await page.keyboard.press("Escape");
        assert.equal(await page.locator(".tree [hidden]").count(), 0);
        assert.equal(await page.locator(".tree details[open]").count(), 1);
    },

    async "keeps firmware text a text"(page) {
        for (const place of ["#memory .filled span", '[data-k="/Type17"] [data-k="/DeviceLocator"] span'])
            assert.equal(await page.locator(place).first().textContent(), markup);
        assert.equal(await page.locator("img").count(), 0);
        assert.equal(await page.locator("script").count(), 1);
        assert.equal(await page.evaluate(() => window.broken), undefined);
    },

    async "shows all without a script"(page) {
        assert.equal(await page.locator(".bar").isVisible(), false);
        await page.click('[data-k="/Type0"] > summary');
        assert.equal(await page.locator('[data-k="/Type0"] [data-k="/BIOSVendor"]').isVisible(), true);
    },
};
const withHostileText = "keeps firmware text a text";
const withoutScript = "shows all without a script";

const folder = mkdtempSync(join(tmpdir(), "smbios-tree-html-"));
const write = (name, image) => {
    const [input, output] = [join(folder, name + ".bin"), join(folder, name + ".html")];
    writeFileSync(input, image);
    writeFileSync(output, execFileSync(tool, ["--html", input], { maxBuffer: 1 << 28 }));
    return pathToFileURL(output).href;
};
const browser = await chromium.launch({
    executablePath: process.env.CHROMIUM ?? "/usr/bin/chromium",
    args: ["--no-sandbox", "--disable-gpu", "--disable-quic", "--no-first-run", "--disable-background-networking",
        "--disable-component-update", "--disable-sync"],
});
let failures = 0;
try {
    const pages = { sample: write("sample", readFileSync(sample)), hostile: write("hostile", hostile) };
    const open = async (address, options = {}) => {
        const page = await browser.newPage({ viewport: { width: 1200, height: 860 }, ...options });
        page.complaints = [];
        page.on("pageerror", (error) => page.complaints.push(String(error)));
        page.on("console", (message) => page.complaints.push(message.text()));
        page.on("request", (request) => request.url() === address || page.complaints.push("asks for " + request.url()));
        await page.goto(address);
        return page;
    };
    for (const [name, test] of Object.entries(tests)) {
        const page = await open(name === withHostileText ? pages.hostile : pages.sample,
            { javaScriptEnabled: name !== withoutScript });
        try {
            await test(page);
            assert.deepEqual(page.complaints, []);
            console.log("ok    ", name);
        } catch (error) {
            ++failures;
            console.log("FAILED", name + "\n" + error.message);
        }
        await page.close();
    }
    await (await open(pages.sample)).screenshot({ path: screenshot });
} finally {
    await browser.close();
    rmSync(folder, { recursive: true });
}
process.exit(failures === 0 ? 0 : 1);
