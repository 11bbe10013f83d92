// How JavaScript is checked: the package, the page and the tests. scripts/test-web runs it from the root.

import js from '@eslint/js';
import globals from 'globals';

export default [
    js.configs.recommended,
    {
        languageOptions: { globals: { ...globals.browser, ...globals.node } },
        linterOptions: { reportUnusedDisableDirectives: 'error' },
        rules: {
            curly: 'error',
            eqeqeq: 'error',
            'no-shadow': 'error',
            'no-unused-private-class-members': 'error',
            'no-var': 'error',
            'object-shorthand': 'error',
            'prefer-const': 'error',
        },
    },
    { files: ['**/*-worker.js'], languageOptions: { sourceType: 'script', globals: globals.worker } },
];
