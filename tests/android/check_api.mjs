// Checks Java declarations of Android's classes against a list of what Android has:
// check_api.mjs LIST LEVEL CLASSES [NEWER MEMBER...]
// LIST: TypeScript declarations of all API levels. CLASSES: a folder of class files. A member exists
// with its number of arguments, is static or not, has its constant's value, and is not newer than
// LEVEL, unless it is named.
import {execFileSync} from 'node:child_process';
import {readdirSync, readFileSync} from 'node:fs';

const [listFile, level, folder, ...newer] = process.argv.slice(2);

/** The number of items in a list, whatever their types contain. */
function count(list) {
    let depth = 0;
    let items = list.trim() === '' ? 0 : 1;
    for (const c of list.replaceAll('=>', '')) {
        depth += '(<{['.includes(c) ? 1 : ')>}]'.includes(c) ? -1 : 0;
        items += c === ',' && depth === 0 ? 1 : 0;
    }
    return items;
}

function addMember(type, line, since) {
    const call = line.match(/^public (static )?(\w+)\((.*)\)(?:: [^()]*)?;$/);
    const field = line.match(/^public (static )?(\w+): (.*);$/);
    const [, isStatic, name, rest] = call || field || [];
    if (name) {
        const key = (isStatic || '') + name + (call ? `/${count(rest)}` : '');
        const known = type.members.get(key);
        type.members.set(key, {
            since: Math.max(Math.min(known?.since ?? Infinity, since), type.since), value: rest});
    }
}

/** Classes by name, each with its members by "static name/arguments". */
function readList() {
    const classes = new Map();
    const scopes = [];  // What the open braces belong to; null: no class.
    let since = 0;
    for (const raw of readFileSync(listFile, 'utf8').split('\n')) {
        const line = raw.trim();
        const opened = line.match(/^(?:declare|export) (module|(?:abstract )?class|interface) (\w+)(?:<.*?> ?)?(?: extends ([\w.]+))?/);
        const outer = scopes.findLast(scope => scope);
        if (opened && line.endsWith('{')) {
            const name = outer ? `${outer.name}.${opened[2]}` : opened[2];
            const parents = line.match(/(?:extends|implements) .*/)?.[0].match(/[\w.]+\.\w+/g) ?? [];
            const type = {name, parents, since, members: new Map()};
            if (opened[1] !== 'module') {
                classes.set(name, type);
            }
            scopes.push(type);
        } else if (line.startsWith('public ') && scopes.at(-1)) {
            addMember(scopes.at(-1), line, since);
            scopes.push(...Array(Math.max(0, line.split('{').length - line.split('}').length)).fill(null));
        } else if (!line.startsWith('/*') && !line.startsWith('*')) {
            const change = line.split('{').length - line.split('}').length;
            change < 0 ? scopes.splice(change) : scopes.push(...Array(change).fill(null));
        }
        const noted = line.match(/@since (\d+)/);
        since = noted ? Number(noted[1]) : line.endsWith('*/') ? since : 0;
    }
    return classes;
}

/** A member of a class or of what it is derived from. */
function find(classes, name, key) {
    const type = classes.get(name);
    return type && (type.members.get(key) ??
        type.parents.reduce((found, parent) => found ?? find(classes, parent, key), undefined));
}

const classes = readList();
const files = readdirSync(folder, {recursive: true}).filter(file => file.endsWith('.class'));
const shown = execFileSync('javap', ['-protected', '-constants', ...files.map(file => `${folder}/${file}`)],
    {encoding: 'utf8', maxBuffer: 1 << 26});
let type = '';
let checked = 0;
const wrong = [];
for (const line of shown.split('\n')) {
    const head = line.match(/(?:class|interface) ([\w.$]+).*{$/);
    const member = line.match(/^ +(.*?)([\w.$]+)(?:\((.*)\)| = (.*))?(?: throws .*)?;$/);
    let known;
    if (head && !/^ *(public|protected) /.test(line)) {
        type = '';
    } else if (head) {
        type = head[1].replaceAll('$', '.');
        known = classes.get(type);
    } else if (type && member) {
        const [, modifiers, name, given, value] = member;
        const isConstructor = name.replaceAll('$', '.') === type;
        const key = (/\bstatic\b/.test(modifiers) ? 'static ' : '') +
            (isConstructor ? 'constructor' : name) + (given === undefined ? '' : `/${count(given)}`);
        known = find(classes, type, key);
        if (known && value && /^-?\d+$/.test(known.value) && parseInt(value) !== Number(known.value)) {
            wrong.push(`${type}.${name} is ${known.value}`);
        }
    }
    if (!type || (!head && !member)) {
        continue;
    }
    ++checked;
    const what = head ? type : `${type}: ${line.trim()}`;
    if (!known) {
        wrong.push(`not in Android: ${what}`);
    } else if (known.since > level && !newer.some(each => what.includes(each))) {
        wrong.push(`not before API level ${known.since}: ${what}`);
    }
}
console.log(`${checked} classes and members checked`);
if (wrong.length > 0 || checked === 0) {
    console.error(wrong.join('\n'));
    process.exit(1);
}
