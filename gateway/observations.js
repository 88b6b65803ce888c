// The station files for Skelda, checked whole before a byte of them goes out.
//
// nginx passes a proxied reply on as it comes; the program reads only the first packet of a
// reply and decodes whatever stands behind its head. So the gateway fetches a station file
// through a subrequest, which nginx holds whole in memory, looks at it, and only then answers, in
// one write: a real station file, or else the last good copy of that station, or else nothing at
// all (the connection closed without a reply, which the program takes as a silent server and
// which stores nothing).

const fs = require('fs');

// A station file: its date line ("2026/11/24 19:00", then a line end), then the report. The
// program skips the first 17 characters of the body by count, so the line must be just so.
const stampLine = /^\d{4}\/\d\d\/\d\d \d\d:\d\d\r?\n[A-Z0-9]{4} /;
const largestFile = 4096;

function looksLikeStationFile(body) {
    return body.length > 0 && body.length <= largestFile && stampLine.test(body);
}

// A range's answer that holds the whole file ("bytes 0-67/68").
function wholeFile(reply) {
    const range = /^bytes 0-(\d+)\/(\d+)$/.exec(reply.headersOut['Content-Range'] || '');
    return range !== null && Number(range[1]) + 1 === Number(range[2]);
}

function lastGoodPath(r, code) {
    return r.variables.skelda_last_good + '/' + code + '.TXT';
}

function send(r, body) {
    r.headersOut['Content-Type'] = 'text/plain';
    r.return(200, body);
}

function keep(r, code, body) {
    const path = lastGoodPath(r, code);
    // Most polls find the copy they would write: reading it is cheaper than writing it again.
    if (lastGood(r, code) === body) return;
    try {
        // Written aside and renamed, so that a reader never meets half a file.
        fs.writeFileSync(path + '.new', body);
        fs.renameSync(path + '.new', path);
    } catch (e) {
        r.warn('station ' + code + ': the last good copy could not be kept: ' + e.message);
    }
}

function lastGood(r, code) {
    try {
        const body = fs.readFileSync(lastGoodPath(r, code), 'utf8');
        return looksLikeStationFile(body) ? body : null;
    } catch (e) {
        return null;
    }
}

function fallBack(r, code, why) {
    const body = lastGood(r, code);
    if (body !== null) {
        r.warn('station ' + code + ': ' + why + '; the last good copy is served');
        send(r, body);
    } else {
        r.warn('station ' + code + ': ' + why + '; no copy to serve, the connection is closed');
        r.return(444);
    }
}

function station(r) {
    const code = r.variables.skelda_station;
    r.subrequest('/.skelda/station/' + code, {method: 'GET'})
        .then(reply => {
            if (reply.status !== 200 && !(reply.status === 206 && wholeFile(reply))) {
                fallBack(r, code, 'the source answered ' + reply.status);
                return;
            }
            const body = reply.responseBuffer === undefined ? '' : reply.responseBuffer.toString();
            if (!looksLikeStationFile(body)) {
                fallBack(r, code, 'the source sent ' + body.length + ' bytes that are no station file');
                return;
            }
            keep(r, code, body);
            send(r, body);
        })
        .catch(e => fallBack(r, code, 'the fetch failed: ' + e.message));
}

export default {station};
