#!/usr/bin/env python3
"""Writes the icons of the library into resources/icons/ and their list into resources/icons.qrc.

Every icon is drawn here on one 24 x 24 grid in one visual language: 2-pixel round strokes in
slate ink, one blue accent, semantic green, red, amber and the marker purple. Each icon comes in
two forms: the plain file, and the active one ending in "_2", which puts the same glyph in deep
blue on a light blue plate. Run it after changing a glyph and commit what it writes.
"""

import math
import os
import sys

INK = "#2f3b4c"
ACCENT = "#1e7bd8"
GREEN = "#2e9d4a"
RED = "#d64541"
AMBER = "#e0a01c"
PURPLE = "#915695"
PAPER = "#ffffff"

ACTIVE_INK = "#0f4f91"
ACTIVE_PLATE = "#d3e6fa"
ACTIVE_FRAME = "#7fb3e8"


def line(x1, y1, x2, y2, color="ink", width=2):
    return f'<path d="M{x1} {y1}L{x2} {y2}" stroke="{{{color}}}" stroke-width="{width}"/>'


def path(d, color="ink", width=2, fill="none"):
    fill_attr = "none" if fill == "none" else f"{{{fill}}}"
    return f'<path d="{d}" stroke="{{{color}}}" stroke-width="{width}" fill="{fill_attr}"/>'


def filled(d, color="ink"):
    return f'<path d="{d}" fill="{{{color}}}" stroke="none"/>'


def rect(x, y, w, h, color="ink", rx=1.5, fill="none", width=2):
    fill_attr = "none" if fill == "none" else f"{{{fill}}}"
    return (f'<rect x="{x}" y="{y}" width="{w}" height="{h}" rx="{rx}" stroke="{{{color}}}" '
            f'stroke-width="{width}" fill="{fill_attr}"/>')


def circle(cx, cy, r, color="ink", fill="none", width=2):
    fill_attr = "none" if fill == "none" else f"{{{fill}}}"
    return f'<circle cx="{cx}" cy="{cy}" r="{r}" stroke="{{{color}}}" stroke-width="{width}" fill="{fill_attr}"/>'


def dot(cx, cy, r, color="ink"):
    return f'<circle cx="{cx}" cy="{cy}" r="{r}" fill="{{{color}}}" stroke="none"/>'


# Small badges in the lower right corner, over a paper-coloured disc so they read on any glyph.
def badge_plus(color="green"):
    return dot(18, 18, 5.5, "paper") + line(18, 14.5, 18, 21.5, color) + line(14.5, 18, 21.5, 18, color)


def badge_cross(color="red"):
    return dot(18, 18, 5.5, "paper") + line(15.5, 15.5, 20.5, 20.5, color) + line(20.5, 15.5, 15.5, 20.5, color)


def badge_check(color="green"):
    return dot(18, 18, 5.5, "paper") + path("M15 18l2 2 4-4", color)


def sine(x0, x1, mid, amp, periods=1.0, color="accent", width=2, phase=0.0):
    """A sine drawn as one cubic-smoothed polyline."""
    steps = 24
    points = []
    for i in range(steps + 1):
        t = i / steps
        x = x0 + (x1 - x0) * t
        y = mid - amp * math.sin(2 * math.pi * periods * t + phase)
        points.append(f"{x:.2f} {y:.2f}")
    return path("M" + "L".join(points), color, width)


def gear(cx, cy, outer, inner, teeth=8):
    points = []
    for i in range(teeth * 4):
        angle = 2 * math.pi * i / (teeth * 4) - math.pi / 2
        r = outer if i % 4 in (0, 1) else inner
        points.append(f"{cx + r * math.cos(angle):.2f} {cy + r * math.sin(angle):.2f}")
    return path("M" + "L".join(points) + "Z") + circle(cx, cy, 2.6)


def page(x=5, y=3, w=14, h=18, fold=4, color="ink"):
    d = f"M{x} {y + 1}a1 1 0 0 1 1-1h{w - fold - 1}l{fold} {fold}v{h - fold - 1}a1 1 0 0 1-1 1H{x + 1}a1 1 0 0 1-1-1z"
    return path(d, color, fill="paper") + path(f"M{x + w - fold} {y}v{fold}h{fold}", color)


def floppy():
    return (path("M4 5a1 1 0 0 1 1-1h11l4 4v11a1 1 0 0 1-1 1H5a1 1 0 0 1-1-1z", fill="paper")
            + rect(8, 4, 7, 5, "accent", rx=0.5) + rect(7.5, 13, 9, 7, rx=0.5))


def printer():
    return (rect(7, 3, 10, 6, rx=0.5) + rect(3, 9, 18, 8, rx=2, fill="paper")
            + rect(7, 14, 10, 7, rx=0.5, fill="paper") + dot(17.5, 12, 1.2, "accent"))


def magnifier():
    return circle(10, 10, 6) + line(14.5, 14.5, 20, 20, width=2.5)


def eye():
    return path("M2.5 12c2.5-4.5 6-6.5 9.5-6.5s7 2 9.5 6.5c-2.5 4.5-6 6.5-9.5 6.5s-7-2-9.5-6.5z") + circle(12, 12, 2.8,
                                                                                                      "accent")


def list_rows(x0=4, x1=20, ys=(6, 12, 18), color="ink"):
    return "".join(line(x0, y, x1, y, color) for y in ys)


def measure_bar(y=12, x0=4, x1=20, left="ink", right="ink", color="ink", half=6):
    head = min(3, half - 1)
    return (line(x0, y - half, x0, y + half, left) + line(x1, y - half, x1, y + half, right)
            + line(x0 + 2, y, x1 - 2, y, color) + path(f"M{x0 + 2 + head} {y - head}l-{head} {head} {head} {head}", color)
            + path(f"M{x1 - 2 - head} {y - head}l{head} {head}-{head} {head}", color))


def marker_flag(x=8, color="purple"):
    return line(x, 3, x, 21, color) + filled(f"M{x} 3h8l-2.5 3 2.5 3h-8z", color)


def trigger_mark():
    return line(12, 3, 12, 21) + filled("M12 11l-5-8h10z", "red")


def phasor(angle_deg, length, color):
    a = math.radians(angle_deg)
    x = 12 + length * math.cos(a)
    y = 12 - length * math.sin(a)
    # arrow head: two short strokes back from the tip
    h1 = a + math.radians(150)
    h2 = a - math.radians(150)
    return (line(12, 12, f"{x:.2f}", f"{y:.2f}", color)
            + path(f"M{x + 3.5 * math.cos(h1):.2f} {y - 3.5 * math.sin(h1):.2f}L{x:.2f} {y:.2f}"
                   f"L{x + 3.5 * math.cos(h2):.2f} {y - 3.5 * math.sin(h2):.2f}", color))


def square_wave(y_low=16, y_high=8, color="accent", xs=(3, 7, 7, 12, 12, 17, 17, 21)):
    d = f"M{xs[0]} {y_low}"
    level = y_low
    for i in range(1, len(xs)):
        if xs[i] == xs[i - 1]:
            level = y_high if level == y_low else y_low
            d += f"V{level}"
        else:
            d += f"H{xs[i]}"
    return path(d, color)


ICONS = {
    # The record view's tool bar.
    "ic_save": floppy(),
    "ic_saveAs": floppy() + dot(18, 18, 5.5, "paper") + path("M15 21l1-3 4.5-4.5 2 2L18 20z", "accent", width=1.6),
    "ic_exportCsv": page() + line(8, 11, 16, 11) + line(8, 15, 16, 15) + line(12, 8, 12, 18)
    + dot(18, 18, 5.5, "paper") + path("M15 18h6M18.5 15.5L21 18l-2.5 2.5", "accent"),
    "Emblem-notice": circle(12, 12, 9) + dot(12, 7.5, 1.4, "accent") + line(12, 11, 12, 17, "accent", 2.4),
    "ic_sett": gear(12, 12, 9, 6.5),
    "ic_settings": gear(12, 12, 9, 6.5),
    "ic_print": printer(),
    "ic_x_scale_increase": line(12, 6, 12, 18, "accent") + line(3, 12, 9, 12) + line(15, 12, 21, 12)
    + path("M5.5 9L2.5 12l3 3") + path("M18.5 9l3 3-3 3"),
    "ic_x_scale_decrease": line(12, 6, 12, 18, "accent") + line(2, 12, 9, 12) + line(15, 12, 22, 12)
    + path("M6.5 9l3 3-3 3") + path("M17.5 9l-3 3 3 3"),
    "ic_x_scale_fit": line(3, 5, 3, 19, "accent") + line(21, 5, 21, 19, "accent") + line(6, 12, 18, 12)
    + path("M9 9l-3 3 3 3") + path("M15 9l3 3-3 3"),
    "ic_compact_mode": rect(3, 4, 18, 16, rx=2) + list_rows(6, 18, (8, 11, 14, 17), "accent"),
    "ic_full_mode": rect(3, 4, 18, 16, rx=2) + sine(6, 18, 8.5, 2, 1) + sine(6, 18, 15.5, 2, 1),
    "ic_primary": circle(9, 12, 6, fill="accent") + circle(15, 12, 6),
    "ic_secondary": circle(9, 12, 6) + circle(15, 12, 6, fill="accent"),
    "ic_time_measure_start": line(5, 5, 5, 19, "green") + line(7, 12, 19, 12) + path("M16 9l3 3-3 3"),
    "ic_time_measure_finish": measure_bar(left="green", right="accent"),
    "ic_time_measure_remove_latest": measure_bar(y=10, x1=18) + badge_cross(),
    "ic_time_measure_remove_all": measure_bar(y=5.5, x0=3, x1=19, half=3.5) + measure_bar(y=14, x0=3, x1=13, half=3.5)
    + badge_cross(),
    "ic_marker_add": marker_flag() + badge_plus(),
    "ic_marker_remove_all": marker_flag(6) + marker_flag(12) + badge_cross(),
    "ic_markers": rect(3, 4, 18, 16, rx=2) + line(3, 9, 21, 9) + line(9, 4, 9, 20) + line(15, 9, 15, 20)
    + filled("M10.5 5.5h4l-1 1 1 1h-4z", "purple"),
    "ic_channel_selection_advanced": rect(3, 4, 4, 4, "accent", rx=1) + rect(3, 10, 4, 4, rx=1)
    + rect(3, 16, 4, 4, "accent", rx=1) + list_rows(10, 21, (6, 12, 18)),
    "ic_channel_selection_show_selected_channels": list_rows(3, 21, (5,), "ink") + list_rows(3, 21, (10,), "accent")
    + list_rows(3, 21, (15,), "ink") + badge_check(),
    "ic_channel_selection_show_all_channels": path("M3 8.5c2.5-3.5 5.5-5 9-5s6.5 1.5 9 5c-2.5 3.5-5.5 5-9 5s-6.5-1.5-9-5z")
    + dot(12, 8.5, 2.2, "accent") + list_rows(3, 21, (17, 21), "accent"),
    "ic_channel_selection_discretes": square_wave(18, 11, "ink") + path("M3 7H21", "accent", 2.4),
    "ic_channel_selection_clear_selection": path("M4 4h3M11 4h3M18 4h2v2M20 10v3M4 8v3M4 15v3h2M10 18h3",
                                                 "accent") + badge_cross(),
    "ic_list": list_rows(9, 21, (6, 12, 18)) + filled("M5 3.5l3.2 5.5H1.8z", "red") + dot(5, 12, 1.5, "amber")
    + dot(5, 18, 1.5, "amber"),
    "ic_marker_set_trigger_time": trigger_mark(),
    "ic_leftArr": line(5, 5, 5, 19, "accent") + path("M17 6l-6 6 6 6"),
    "ic_rightArr": line(19, 5, 19, 19, "accent") + path("M7 6l6 6-6 6"),
    "ic_select_signals_form": sine(3, 21, 7.5, 3.5, 1) + square_wave(20, 14, "ink", (3, 7.5, 7.5, 12, 12, 16.5, 16.5, 21)),
    "ic-mdiff": sine(3, 21, 8, 3.5, 1, "ink") + sine(3, 21, 16, 3.5, 1, "accent", phase=math.pi / 2)
    + path("M21 6v12", "ink", 1.5),
    "ic_hodograph": line(3, 12, 21, 12, width=1.5) + line(12, 3, 12, 21, width=1.5)
    + path("M19 6c-3 0-5 2-6 5s-1 6-4 7-5-1-5-3", "accent"),
    "ic_gdf": page() + path("M8 17c2-6 4-7 8-7", "accent") + dot(16, 10, 1.4, "accent"),
    "ic_calcSig": path("M17 5H6l6 7-6 7h11") + sine(14, 22, 17, 2.2, 1, "accent", 1.6),
    "ic_merge_osc": path("M4 5c0 5 8 4 8 9v6M20 5c0 5-8 4-8 9", "ink") + path("M9 17l3 3 3-3", "accent")
    + dot(4, 5, 1.6, "accent") + dot(20, 5, 1.6, "accent"),
    # The context menu of an analogue row.
    "ic_vectorDiagram": circle(12, 12, 10, width=1) + phasor(90, 8.5, "amber") + phasor(-30, 8.5, "green")
    + phasor(210, 8.5, "red"),
    "ic_vecDiagram": circle(12, 12, 10, width=1) + phasor(100, 8.5, "accent") + phasor(0, 8.5, "accent")
    + dot(12, 12, 1.6),
    "ic_spectrum": line(3, 21, 21, 21) + rect(4.5, 6, 3, 13, "accent", rx=0.5, fill="accent", width=1)
    + rect(10.5, 12, 3, 7, "accent", rx=0.5, fill="accent", width=1)
    + rect(16.5, 16, 3, 3, "accent", rx=0.5, fill="accent", width=1),
    "ic_sig_behavior": sine(2, 15, 10, 5, 1.2, "accent") + circle(15, 14, 4.5) + line(18.2, 17.2, 21.5, 20.5, width=2.5),
    # The rows.
    "ic_digital_invert": square_wave(19, 13, "ink", (3, 8, 8, 15, 15, 21)) + square_wave(9, 3, "accent",
                                                                                       (3, 8, 8, 15, 15, 21)),
    "ic_anomaly_inf": sine(2, 22, 12, 4, 1.5, "ink") + path("M9 4h6v16H9z", "red", 1.5),
    "plus": line(12, 5, 12, 19, "accent", 2.5) + line(5, 12, 19, 12, "accent", 2.5),
    "minus": line(5, 12, 19, 12, "accent", 2.5),
    "ic_row_lower": rect(3, 8, 18, 8, rx=1.5) + path("M12 2v4M9.5 4L12 6.5 14.5 4", "accent")
    + path("M12 22v-4M9.5 20l2.5-2.5 2.5 2.5", "accent"),
    "ic_row_higher": rect(3, 5, 18, 14, rx=1.5) + path("M12 16V8M9.5 10.5L12 8l2.5 2.5M9.5 13.5L12 16l2.5-2.5",
                                                        "accent"),
    "ic_fit_magnitude": line(3, 4, 21, 4, width=1.5) + line(3, 20, 21, 20, width=1.5) + sine(3, 21, 12, 7, 1),
    "ic_reset_channel": path("M19 12a7 7 0 1 1-2.05-4.95") + path("M19.5 3.5V8h-4.5", "accent"),
    "ic_hide_channel": eye() + line(4, 20, 20, 4, "red"),
    "ic_invert": line(3, 12, 15, 12, width=1) + sine(3, 15, 12, 6, 1, "accent")
    + path("M19.5 4v16M17 6.5l2.5-2.5 2.5 2.5M17 17.5l2.5 2.5 2.5-2.5"),
    # The print preview.
    "ic_fitToWidth": page(6, 3, 12, 18, 3) + path("M2 12h5M4 10l-2 2 2 2M22 12h-5M20 10l2 2-2 2", "accent"),
    "ic_fitInView": page(6, 5, 12, 14, 3) + path("M2 7V2h5M22 7V2h-5M2 17v5h5M22 17v5h-5", "accent"),
    "ic_zoomOut": magnifier() + line(7, 10, 13, 10, "accent"),
    "ic_zoomIn": magnifier() + line(7, 10, 13, 10, "accent") + line(10, 7, 10, 13, "accent"),
    "ic_firstPage": line(5, 5, 5, 19, "accent") + path("M12 6l-6 6 6 6M19 6l-6 6 6 6"),
    "ic_prevPage": path("M15 5l-7 7 7 7"),
    "ic_nextPage": path("M9 5l7 7-7 7"),
    "ic_lastPage": line(19, 5, 19, 19, "accent") + path("M12 6l6 6-6 6M5 6l6 6-6 6"),
    "ic_portrait": page(6, 2, 12, 20, 3) + list_rows(9, 15, (11, 14, 17), "accent"),
    "ic_landscape": path("M2 7a1 1 0 0 1 1-1h15l4 4v8a1 1 0 0 1-1 1H3a1 1 0 0 1-1-1z", fill="paper")
    + list_rows(5, 17, (11, 14), "accent"),
    "ic_printOptions": page() + path("M8 10h8M8 15h8", "ink", 1.5) + dot(10, 10, 1.8, "accent") + dot(14, 15, 1.8, "accent"),
    "ic_printerOptions": printer() + dot(18, 18, 5.5, "paper") + gear(18, 18, 4.6, 3.2, 6),
}

ROLES = {"ink": INK, "accent": ACCENT, "green": GREEN, "red": RED, "amber": AMBER, "purple": PURPLE, "paper": PAPER}


def svg(body, active):
    colours = dict(ROLES)
    plate = ""
    if active:
        colours["ink"] = ACTIVE_INK
        plate = f'<rect x="0.5" y="0.5" width="23" height="23" rx="4" fill="{ACTIVE_PLATE}" stroke="{ACTIVE_FRAME}"/>'
    return ('<svg xmlns="http://www.w3.org/2000/svg" width="24" height="24" viewBox="0 0 24 24" '
            'fill="none" stroke-linecap="round" stroke-linejoin="round">'
            + plate + body.format(**colours) + "</svg>\n")


def main():
    root = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
    folder = os.path.join(root, "resources", "icons")
    os.makedirs(folder, exist_ok=True)
    names = []
    for name, body in sorted(ICONS.items()):
        for active in (False, True):
            file_name = name + ("_2" if active else "") + ".svg"
            with open(os.path.join(folder, file_name), "w") as out:
                out.write(svg(body, active))
            names.append(file_name)
    with open(os.path.join(root, "resources", "icons.qrc"), "w") as qrc:
        qrc.write("<!DOCTYPE RCC>\n<RCC version=\"1.0\">\n<qresource prefix=\"/icons\">\n")
        for file_name in names:
            qrc.write(f"    <file alias=\"{file_name}\">icons/{file_name}</file>\n")
        qrc.write("</qresource>\n</RCC>\n")
    print(f"{len(names)} icons written to {folder}", file=sys.stderr)


if __name__ == "__main__":
    main()
